// The real foedit program: its exit codes and messages for bad input, and scripts
// from standard input.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct ProgramRun {
    int status = -1;
    std::string out;
    std::string err;
};

std::string slurp(const std::filesystem::path &path)
{
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// Runs foedit with `arguments` (shell words) and `input` on standard input.
ProgramRun foedit(const std::string &arguments, const std::string &input = "")
{
    // ctest runs the tests of this file side by side: each run gets a folder of its own.
    static int runs = 0;
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() /
        ("foedit-binary-test-" + std::to_string(getpid()) + "-" + std::to_string(++runs));
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "in") << input;
    const std::string command = std::string(FOEDIT_TOOL_PATH) + " --color=never " + arguments + " <" +
                                (folder / "in").string() + " >" + (folder / "out").string() + " 2>" +
                                (folder / "err").string();
    const int status = std::system(command.c_str());
    ProgramRun run;
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.out = slurp(folder / "out");
    run.err = slurp(folder / "err");
    std::filesystem::remove_all(folder);
    return run;
}

} // namespace

TEST(FoeditProgram, WithoutADocumentTheSampleLetterOpensAndAPipeIsAScript)
{
    const ProgramRun run = foedit("", "find Dear\nshow block\n");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "<fo:block space-before=\"24pt\">|Dear Ms Okafor,</fo:block>\n");
}

TEST(FoeditProgram, ExitCodesTellTheKindOfFailure)
{
    struct Case {
        std::string arguments;
        std::string input;
        int status;
        std::string message;
    };
    const std::vector<Case> cases = {
        {"-e 'expect nothing'", "", 1, "-e:1: expect failed at character 1"},
        {"--frobnicate", "", 2, "foedit: unknown option '--frobnicate' (see foedit --help)"},
        {"--color=sometimes", "", 2, "foedit: --color takes never, always or auto"},
        {"a.fo b.fes c", "", 2, "foedit: too many arguments: 'c'"},
        {"--sample -", "home\n\nfnid x\n", 3, "stdin:3: unknown command 'fnid' (did you mean 'find'?)"},
        {"/no/such/letter.fo -e show", "", 4, "foedit: cannot open the document /no/such/letter.fo"},
        {"--sample /no/such/script.fes", "", 4, "foedit: cannot read the script /no/such/script.fes"},
        {"-e 'save /no/such/folder/x.fo'", "", 5, "-e:1: cannot save /no/such/folder/x.fo"},
        {"-k", "", 2, "foedit: keys mode (-k) needs a terminal"},
    };
    for (const Case &c : cases) {
        const ProgramRun run = foedit(c.arguments, c.input);
        EXPECT_EQ(run.status, c.status) << c.arguments << "\n" << run.err;
        EXPECT_EQ(run.err.rfind(c.message, 0), 0u) << c.arguments << "\n" << run.err;
    }
}

TEST(FoeditProgram, HelpListsTheCommandsAndTheExitCodes)
{
    const ProgramRun run = foedit("--help");
    EXPECT_EQ(run.status, 0);
    for (const char *text : {"Usage: foedit", "  paste-markup MARKUP", "  shift-word-left [COUNT]",
                             "  5  a save was refused", "Esc or Ctrl+Q leaves"})
        EXPECT_NE(run.out.find(text), std::string::npos) << text;
}
