// The script commands on the engine: each edit command through the shared edit check
// (result, undo back to the exact original, redo), moves and their counts, and how a
// failing line is reported.
#include "ToolTestSupport.h"

#include "common/EditCheck.h"
#include "common/MarkedDocument.h"

#include "support/DocumentFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

using namespace foedit::test;

namespace {

EditCheck::Edit command(const std::string &script)
{
    return [script](EditableDocumentBuffer &buffer) {
        const ScriptResult result = runScriptOn(buffer, script);
        EXPECT_EQ(result.code, ExitCode::Ok) << result.err;
    };
}

std::string flowAfter(const std::string &markedFlow, const std::string &script)
{
    auto session = sessionWithFlow(markedFlow);
    const ScriptResult result = runScript(*session, script);
    EXPECT_EQ(result.code, ExitCode::Ok) << result.err;
    return FlowPrinter::markedFlow(session->document());
}

} // namespace

TEST(EditCommands, TypingTakesItsEscapesAndReplacesASelection)
{
    expectEdit("<fo:block>ab|cd</fo:block>", command(R"(type x\sy\\)"), "<fo:block>abx y\\|cd</fo:block>");
    expectEdit("<fo:block>a^bc|d</fo:block>", command("type X"), "<fo:block>aX|d</fo:block>");
    expectEdit("<fo:block>a|b</fo:block>",
               command("paste-markup <fo:inline font-style=\"italic\">it</fo:inline>"),
               "<fo:block>a<fo:inline font-style=\"italic\">it</fo:inline>|b</fo:block>");
}

TEST(EditCommands, DeletionAndBreakKeys)
{
    expectEdit("<fo:block>ab|cd</fo:block>", command("delete"), "<fo:block>ab|d</fo:block>");
    expectEdit("<fo:block>ab|cd</fo:block>", command("backspace"), "<fo:block>a|cd</fo:block>");
    expectEdit("<fo:block>one |two three</fo:block>", command("delete-word"),
               "<fo:block>one |three</fo:block>");
    expectEdit("<fo:block>ab|cd</fo:block>", command("line-break"), "<fo:block>ab<fo:block />|cd</fo:block>");
    expectEdit("<fo:block color=\"red\">ab|cd</fo:block>", command("enter"),
               "<fo:block color=\"red\">ab</fo:block>\n<fo:block color=\"red\">|cd</fo:block>");
}

TEST(EditCommands, FormattingWithoutASelectionWaitsForTheNextTypedText)
{
    // The engine brings the caret into the new inline after its last caret mark, so a
    // redo leaves the caret behind the inline: only the string is compared there.
    EditCheck("<fo:block>ab|cd</fo:block>")
        .redoRestoresStringOnly()
        .expect(command("format font-weight=bold\ntype X"),
                "<fo:block>ab<fo:inline font-weight=\"bold\">X|</fo:inline>cd</fo:block>");
    // Once used, the formatting is gone: the next text is plain.
    EXPECT_EQ(flowAfter("<fo:block>ab|cd</fo:block>", "format color=red\ntype X\nright\ntype Y"),
              "<fo:block>ab<fo:inline color=\"red\">X</fo:inline>cY|d</fo:block>");
}

TEST(EditCommands, FormattingASelectionAndAParagraph)
{
    expectEdit("<fo:block>a^bc|d</fo:block>", command(R"(format font-family="Times New Roman")"),
               "<fo:block>a<fo:inline font-family=\"Times New Roman\">^bc|</fo:inline>d</fo:block>");
    expectEdit("<fo:block>ab|cd</fo:block>", command("format-block text-align=center"),
               "<fo:block text-align=\"center\">ab|cd</fo:block>");
}

TEST(EditCommands, CountsRepeatTheKeyAndUndoCountsSteps)
{
    EXPECT_EQ(flowAfter("<fo:block>abc|def</fo:block>", "delete 2\nbackspace 2"), "<fo:block>a|f</fo:block>");
    EXPECT_EQ(flowAfter("<fo:block>abc|def</fo:block>", "delete 2\nbackspace 2\nundo 2"),
              "<fo:block>abc|f</fo:block>");
    EXPECT_EQ(flowAfter("<fo:block>abc|def</fo:block>", "delete 2\nundo 5\nredo 9"),
              "<fo:block>abc|f</fo:block>");
}

TEST(CaretCommands, MovesTheirCountsAndShiftForms)
{
    EXPECT_EQ(flowAfter("<fo:block>|one two three</fo:block>", "right 2"),
              "<fo:block>on|e two three</fo:block>");
    EXPECT_EQ(flowAfter("<fo:block>|one two three</fo:block>", "word-right 2\nshift-left 2"),
              "<fo:block>one tw|o ^three</fo:block>");
    EXPECT_EQ(flowAfter("<fo:block>one two| three</fo:block>", "shift-word-left\nshift-home"),
              "<fo:block>|one two^ three</fo:block>");
    EXPECT_EQ(flowAfter("<fo:block>a|b</fo:block><fo:block>c</fo:block>", "end"),
              "<fo:block>ab</fo:block><fo:block>c|</fo:block>");
}

TEST(CaretCommands, FindSelectAndCaretPlaceByTheStoredMarkup)
{
    EXPECT_EQ(flowAfter("<fo:block>|a&amp;b a&amp;b</fo:block>", "find &amp;b"),
              "<fo:block>a|&amp;b a&amp;b</fo:block>");
    EXPECT_EQ(flowAfter("<fo:block>|one two</fo:block>", "select two"), "<fo:block>one ^two|</fo:block>");
    const int position = flowBodyStart() + 13;
    EXPECT_EQ(flowAfter("<fo:block>|one two</fo:block>", "caret " + std::to_string(position)),
              "<fo:block>one| two</fo:block>");
}

TEST(CaretCommands, InlineBoundariesMergeUnlessSetOff)
{
    const std::string flow = "<fo:block>a|<fo:inline>b</fo:inline>c</fo:block>";
    EXPECT_EQ(flowAfter(flow, "right"), "<fo:block>a<fo:inline>b|</fo:inline>c</fo:block>");
    EXPECT_EQ(flowAfter(flow, "set merge-inline off\nright"),
              "<fo:block>a<fo:inline>|b</fo:inline>c</fo:block>");
}

TEST(ScriptErrors, AFailingLineIsReportedWithFileAndLineAndStopsTheRun)
{
    auto session = sessionWithFlow("<fo:block>a|b</fo:block>");
    ScriptResult result = runScript(*session, "# comment\ntpye X\ntype Y");
    EXPECT_EQ(result.code, ExitCode::ScriptError);
    EXPECT_EQ(result.err, "t.fes:2: unknown command 'tpye' (did you mean 'type'?)\n");
    EXPECT_EQ(FlowPrinter::markedFlow(session->document()), "<fo:block>a|b</fo:block>");

    for (const char *bad : {"right two", "home 3", "save", "save a.fo ebcdic", "format bold", "format 9x=1",
                            "list squares", "type", R"(type \x)", "caret 99999", "set merge-inline maybe"}) {
        result = runScript(*session, bad);
        EXPECT_EQ(result.code, ExitCode::ScriptError) << bad;
        EXPECT_EQ(result.err.rfind("t.fes:1: ", 0), 0u) << result.err;
    }
    result = runScript(*session, "find nowhere");
    EXPECT_EQ(result.code, ExitCode::Mismatch);
    EXPECT_EQ(result.err, "t.fes:1: 'nowhere' is not in the document\n");
}

TEST(ScriptErrors, AFailedExpectPointsAtTheFirstDifference)
{
    auto session = sessionWithFlow("<fo:block>ab|cd</fo:block>");
    EXPECT_EQ(runScript(*session, "expect <fo:block>ab|cd</fo:block>").code, ExitCode::Ok);
    EXPECT_EQ(runScript(*session, "expect-block <fo:block>ab|cd</fo:block>").code, ExitCode::Ok);
    const ScriptResult result = runScript(*session, "expect <fo:block>abc|d</fo:block>");
    EXPECT_EQ(result.code, ExitCode::Mismatch);
    EXPECT_EQ(result.err, "t.fes:1: expect failed at character 13: expected 'c|d</fo:block>', found "
                          "'|cd</fo:block>'\n  expected: <fo:block>abc|d</fo:block>\n"
                          "  actual:   <fo:block>ab|cd</fo:block>\n");
}

TEST(ScriptErrors, TraceShowsEachCommandTheNotificationsAndTheFlow)
{
    auto session = sessionWithFlow("<fo:block>ab|cd</fo:block>");
    std::ostringstream out;
    std::ostringstream err;
    ScriptRunner runner(*session, out, err, RunSettings{true, false});
    EXPECT_EQ(runner.run(ScriptParser::parse("type X\nshift-left", "t.fes")), ExitCode::Ok);
    EXPECT_EQ(out.str(), "-- t.fes:1: type X   (caret " + std::to_string(flowBodyStart() + 13) +
                             "; heard buffer caret)\n<fo:block>abX|cd</fo:block>\n"
                             "-- t.fes:2: shift-left   (caret " +
                             std::to_string(flowBodyStart() + 12) + ", pivot " +
                             std::to_string(flowBodyStart() + 13) +
                             "; heard caret selection)\n<fo:block>ab|X^cd</fo:block>\n");
}

TEST(SaveCommand, NeverWritesOverTheInputUnlessForcedAndWritesEachEncoding)
{
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("foedit-save-test-" + std::to_string(getpid()));
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    const std::string input = (folder / "in.fo").string();
    {
        std::ofstream(input) << wrapInFlow("<fo:block>ab</fo:block>").toUtf8();
    }
    EditorSession session;
    session.open(input);
    runScript(session, "type X");
    const Core::String edited = session.document().getContent();

    // The same file under another spelling is still the input.
    const std::string sameFile = (folder / "." / "in.fo").string();
    const ScriptResult refused = runScript(session, "save " + sameFile);
    EXPECT_EQ(refused.code, ExitCode::SaveError);
    EXPECT_NE(refused.err.find("refusing to write over the input document"), std::string::npos)
        << refused.err;
    EXPECT_NE(Core::IO::readDocumentFile(input.c_str()), edited);

    EXPECT_EQ(runScript(session, "save " + input + " --force").code, ExitCode::Ok);
    EXPECT_EQ(Core::IO::readDocumentFile(input.c_str()), edited);
    for (const char *encoding : {"utf-8", "utf-16", "latin-1"}) {
        const std::string copy = (folder / (std::string("copy-") + encoding + ".fo")).string();
        EXPECT_EQ(runScript(session, "save " + copy + " " + encoding).code, ExitCode::Ok);
        EXPECT_EQ(Core::IO::readDocumentFile(copy.c_str())
                      .replaceAll("UTF-16", "UTF-8")
                      .replaceAll("ISO-8859-1", "UTF-8"),
                  edited)
            << encoding;
    }
    const ScriptResult unwritable = runScript(session, "save " + (folder / "no" / "such" / "x.fo").string());
    EXPECT_EQ(unwritable.code, ExitCode::SaveError);
    std::filesystem::remove_all(folder);
}
