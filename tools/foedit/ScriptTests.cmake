# The real binary against scripts: every tests/tools/scripts/*.fes must run to its end
# with exit status 0 (its `expect` lines are the checks). Scripts that show an engine
# fault live in tests/tools/scripts/known/ and are not run here. The tour runs on the
# sample letter it was written for.
set(script_dir ${PROJECT_SOURCE_DIR}/tests/tools/scripts)
set(script_work_dir ${CMAKE_CURRENT_BINARY_DIR}/script-runs)
file(MAKE_DIRECTORY ${script_work_dir})
file(GLOB regression_scripts CONFIGURE_DEPENDS ${script_dir}/*.fes)
foreach(script IN LISTS regression_scripts)
  get_filename_component(script_name ${script} NAME_WE)
  add_test(NAME tools.script.${script_name}
    COMMAND foedit_tool --color=never --sample ${script}
    WORKING_DIRECTORY ${script_work_dir})
  set_tests_properties(tools.script.${script_name} PROPERTIES LABELS tools)
endforeach()
add_test(NAME tools.script.tour
  COMMAND foedit_tool --color=never ${PROJECT_SOURCE_DIR}/examples/letter.fo ${PROJECT_SOURCE_DIR}/examples/tour.fes
  WORKING_DIRECTORY ${script_work_dir})
set_tests_properties(tools.script.tour PROPERTIES LABELS tools)

# The terminal session of keys mode, through tmux; skipped where tmux is missing.
find_program(FOEDIT_TMUX tmux)
if(FOEDIT_TMUX)
  add_test(NAME tools.tmux_keys_demo
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/tmux-keys-demo.sh $<TARGET_FILE:foedit_tool>)
  set_tests_properties(tools.tmux_keys_demo PROPERTIES LABELS "tools" RUN_SERIAL ON)
endif()

# The binary's exit codes and messages, checked by tests/tools/Binary_test.cpp.
if(TARGET foedit_tools_tests)
  target_compile_definitions(foedit_tools_tests PRIVATE FOEDIT_TOOL_PATH="$<TARGET_FILE:foedit_tool>")
  add_dependencies(foedit_tools_tests foedit_tool)
endif()
