// The harness itself: if it misjudged where a caret stands, replayed a seed differently,
// or shrank a session to one that no longer fails, every corpus run would mean nothing.
#include "robustness/MarkupInterior.h"
#include "robustness/SessionDriver.h"
#include "robustness/SessionShrinker.h"
#include "robustness/StepGenerator.h"
#include "robustness/WellFormedness.h"

#include "common/MarkedDocument.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace foedit::test;

namespace {

// The markup of `marked` and what its caret marker would split.
MarkupInterior interiorAtMarker(const char *marked)
{
    const MarkedText parsed = parseMarked(marked);
    return markupInteriorAt(parsed.text, parsed.caret);
}

TEST(MarkupInteriorTest, PositionsBetweenAtomsAreOutside)
{
    for (const char *marked :
         {"|<fo:block>ab</fo:block>", "<fo:block>|ab</fo:block>", "<fo:block>ab|</fo:block>",
          "<fo:block>a|&amp;b</fo:block>", "<fo:block>a&amp;|b</fo:block>", "<fo:block>a & |b</fo:block>",
          "<fo:block>a<!-- c -->|b</fo:block>", "<fo:block>a<![CDATA[<x>]]>|b</fo:block>",
          "<fo:block a=\"x>y\">|b</fo:block>"})
        EXPECT_EQ(interiorAtMarker(marked), MarkupInterior::Outside) << marked;
}

TEST(MarkupInteriorTest, PositionsThatSplitAnAtomAreInside)
{
    EXPECT_EQ(interiorAtMarker("<|fo:block>ab</fo:block>"), MarkupInterior::Tag);
    EXPECT_EQ(interiorAtMarker("<fo:block>ab</fo:block|>"), MarkupInterior::Tag);
    EXPECT_EQ(interiorAtMarker("<fo:block a=\"x>|y\">b</fo:block>"), MarkupInterior::Tag);
    EXPECT_EQ(interiorAtMarker("<fo:block>a&am|p;b</fo:block>"), MarkupInterior::Entity);
    EXPECT_EQ(interiorAtMarker("<fo:block>a&#x00A0|;b</fo:block>"), MarkupInterior::Entity);
    EXPECT_EQ(interiorAtMarker("<fo:block>a<!-- <fo:block>|c -->b</fo:block>"), MarkupInterior::Comment);
    EXPECT_EQ(interiorAtMarker("<fo:block>a<![CDATA[<x>|]]>b</fo:block>"), MarkupInterior::CData);
    EXPECT_EQ(interiorAtMarker("<?xml version=\"1.0\"|?><fo:root/>"), MarkupInterior::ProcessingInstruction);
    EXPECT_EQ(interiorAtMarker("<!DOCTYPE r [<!ENTITY e \"|x\">]><r/>"), MarkupInterior::Declaration);
}

TEST(MarkupInteriorTest, UnterminatedMarkupRunsToTheEnd)
{
    EXPECT_EQ(interiorAtMarker("<fo:block>ab<fo:inline |a"), MarkupInterior::Tag);
    EXPECT_EQ(interiorAtMarker("<fo:block>ab<!-- c |d"), MarkupInterior::Comment);
    EXPECT_EQ(markupInteriorAt("<a>", -1), MarkupInterior::Outside);
    EXPECT_EQ(markupInteriorAt("<a>", 7), MarkupInterior::Outside);
}

TEST(WellFormednessTest, NamespacesAndEntitiesCount)
{
    EXPECT_TRUE(
        isWellFormedXml("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a xmlns:fo=\"u\"><fo:b>&#x00A0;"
                        "&amp;\u00e9</fo:b></a>"));
    EXPECT_FALSE(isWellFormedXml("<a><b></a>"));
    EXPECT_FALSE(isWellFormedXml("<a>&nbsp;</a>"));
    EXPECT_FALSE(isWellFormedXml("<fo:a>x</fo:a>")) << "an undeclared prefix";
    EXPECT_FALSE(isWellFormedXml(""));
}

TEST(StepGeneratorTest, ASeedGivesTheSameSessionEveryTime)
{
    const Core::String document = wrapInFlow("<fo:block>one two</fo:block><fo:block>three</fo:block>");
    const std::vector<Step> steps = generateSession(42, 80);
    const SessionResult first = runSession(document, steps, {});
    const SessionResult second = runSession(document, generateSession(42, 80), {});
    EXPECT_EQ(first.script, second.script);
    EXPECT_NE(runSession(document, generateSession(43, 80), {}).script, first.script);
}

TEST(StepGeneratorTest, BytesDecodeIntoABoundedSession)
{
    EXPECT_TRUE(decodeSession(nullptr, 0, 10).empty());
    const std::uint8_t bytes[64] = {};
    EXPECT_LE(decodeSession(bytes, sizeof bytes, 5).size(), 5u);
    EXPECT_FALSE(decodeSession(bytes, sizeof bytes, 100).empty());
}

Step arrowStep(bool extend, bool forward, bool byWord, bool merge)
{
    Step step;
    step.kind = StepKind::Arrow;
    step.extend = extend;
    step.forward = forward;
    step.byWord = byWord;
    step.merge = merge;
    return step;
}

Step kindStep(StepKind kind, int count = 1, std::u16string text = {})
{
    Step step;
    step.kind = kind;
    step.count = count;
    step.text = std::move(text);
    return step;
}

// The script must read as the foedit tool's commands, escapes included, so that a
// failing session can be pasted into the tool.
TEST(SessionDriverTest, StepsAreWrittenInTheToolsScriptLanguage)
{
    Step backspaceWord = kindStep(StepKind::Erase);
    backspaceWord.forward = false;
    backspaceWord.byWord = true;
    const std::vector<Step> steps = {
        arrowStep(false, true, false, false),      arrowStep(true, true, true, true),
        kindStep(StepKind::Type, 1, u" a\tb\\"),   backspaceWord,
        kindStep(StepKind::Break, ParagraphBreak), kindStep(StepKind::Break, 9),
        kindStep(StepKind::FormatSelection, 0),    kindStep(StepKind::Undo, 2),
    };
    const SessionResult result = runSession(wrapInFlow("<fo:block>one two</fo:block>"), steps, {});
    ASSERT_FALSE(result.violation) << *result.violation;
    const std::vector<std::string> expected = {"right",
                                               "set merge-inline on",
                                               "shift-word-right",
                                               "type \\sa\\tb\\\\",
                                               "backspace-word",
                                               "enter",
                                               "break 9",
                                               "# format font-weight=bold: nothing selected",
                                               "undo 2",
                                               "# then: undo until the history is empty, and redo it all"};
    EXPECT_EQ(result.script, expected);
}

// Delete in front of a nested block must record its line break as the closing tag it
// replaced, so a redo differs from the edit in just that tag: required, not a fault.
TEST(SessionDriverTest, ARedoneLineBreakThatComesBackAsAClosingTagIsNoViolation)
{
    SessionDriver driver(wrapInFlow("<fo:block><fo:block>a</fo:block><fo:block>b</fo:block></fo:block>"), {});
    const MarkedText marked =
        parseMarked(wrapInFlow("<fo:block><fo:block>a|</fo:block><fo:block>b</fo:block></fo:block>"));
    placeCaretExactly(driver.buffer(), marked.caret, marked.caret);
    ASSERT_FALSE(driver.play(kindStep(StepKind::Erase)));
    ASSERT_EQ(markedFlow(driver.buffer()), "<fo:block><fo:block>a|b<fo:block/></fo:block></fo:block>");
    const std::optional<Violation> violation = driver.checkHistory();
    EXPECT_FALSE(violation) << *violation;
}

// The session the shrinker gets fails only when two particular steps both stay in it;
// every other step must go.
TEST(SessionShrinkerTest, KeepsOnlyTheStepsTheFailureNeeds)
{
    const Core::String document = wrapInFlow("<fo:block>one two</fo:block>");
    std::vector<Step> steps = generateSession(7, 40);
    steps.insert(steps.begin() + 10, kindStep(StepKind::Type, 1, u"Q"));
    steps.insert(steps.begin() + 30, kindStep(StepKind::Type, 1, u"R"));
    const SessionFailure typedBoth = [](const SessionResult &result) {
        const auto typed = [&result](const char *line) {
            return std::find(result.script.begin(), result.script.end(), line) != result.script.end();
        };
        return typed("type Q") && typed("type R");
    };
    const SessionResult full = runSession(document, steps, {});
    ASSERT_FALSE(full.violation) << *full.violation;
    ASSERT_TRUE(typedBoth(full));
    const ShrinkResult shrunk = shrinkSession(document, steps, typedBoth, {});
    ASSERT_EQ(shrunk.steps.size(), 2u);
    EXPECT_EQ(shrunk.steps[0].text, u"Q");
    EXPECT_EQ(shrunk.steps[1].text, u"R");
    EXPECT_TRUE(typedBoth(shrunk.result));
}

// The document shrinker drops what the failure does not need, and never hands a
// session a document that does not parse.
TEST(SessionShrinkerTest, ShortensTheDocumentToWhatTheFailureNeeds)
{
    const Core::String document =
        wrapInFlow("<fo:block>one</fo:block>\n<fo:block a=\"1\">two <fo:inline>KEEP</fo:inline>"
                   "</fo:block>\n<fo:block>three</fo:block>\n");
    const std::vector<Step> steps = {kindStep(StepKind::Type, 1, u"x")};
    int replays = 0;
    // Typing succeeds only where a caret stop is left.
    const SessionFailure typesTheLetter = [&replays](const SessionResult &result) {
        ++replays;
        return result.tally.byOperation().count("type") && result.tally.byOperation().at("type").changed > 0;
    };
    const Core::String shrunk = shrinkDocument(document, steps, typesTheLetter, {});
    EXPECT_TRUE(isWellFormedXml(shrunk)) << shrunk;
    EXPECT_LT(shrunk.length() + 100, document.length()) << shrunk;
    EXPECT_GT(replays, 0);
    EXPECT_TRUE(typesTheLetter(runSession(shrunk, steps, {})));
}

} // namespace
