// Remembered walks: after any sequence of splices, every answer of the walks up and of
// the closing-tag search is the one a fresh walk of the same string gives.

#include "MarkupProbe.h"
#include "common/TestPaths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

using foedit::test::mark;
using foedit::test::MarkupProbe;

namespace {

// Asks the walks about every position, so the memo fills with whatever they cross.
void askEverywhere(MarkupProbe const &probe)
{
    for (int p = 0; p < probe.text().length(); ++p) {
        const int element = probe.getCurrentElementPosition(p);
        probe.getClosingTagForTagAtPosition(element);
    }
}

// Every position, answered by the probe with its memo and by a fresh probe without one;
// the closing-tag search at every "<".
void expectSameAsFresh(MarkupProbe const &probe, std::string const &context)
{
    MarkupProbe fresh(probe.text());
    for (int p = -1; p <= probe.text().length(); ++p) {
        ASSERT_EQ(probe.getCurrentElementPosition(p), fresh.getCurrentElementPosition(p))
            << context << " at " << p << " in " << probe.text();
        if (probe.text()[p] == u'<') {
            ASSERT_EQ(probe.getClosingTagForTagAtPosition(p), fresh.getClosingTagForTagAtPosition(p))
                << context << " at " << p << " in " << probe.text();
        }
    }
    ASSERT_TRUE(probe.rememberedWalksAgreeWithString(0)) << context;
}

struct Splice {
    std::string_view before; // `|` marks the splice position
    int removeCount;
    const char *inserted;
    std::string_view after;
};

} // namespace

// A splice in front of what a remembered answer was read from moves it, one behind it
// leaves it, one inside it keeps it only when it cannot change markup.
TEST(StructureMemo, SplicesAroundRememberedSiblings)
{
    const char *flow = "<?xml?><fo:root><fo:flow>";
    const Splice cases[] = {
        // plain text typed in an earlier sibling: later siblings move along
        {"<fo:block>a|</fo:block><fo:block>b</fo:block><fo:block>c</fo:block>", 0, "xyz",
         "<fo:block>axyz</fo:block><fo:block>b</fo:block><fo:block>c|</fo:block>"},
        // a new block opened and closed before the siblings
        {"<fo:block>a|</fo:block><fo:block>b</fo:block>", 0, "</fo:block><fo:block>",
         "<fo:block>a</fo:block><fo:block></fo:block><fo:block>b|</fo:block>"},
        // a closing tag removed: the later siblings now lie inside the first block
        {"<fo:block>a|</fo:block><fo:block>b</fo:block>", 11, "", "<fo:block>a<fo:block>b|</fo:block>"},
        // letters removed from between "-" and "->" make a comment end out of text
        {"<!-- c --><fo:block>a -|x-> b</fo:block><fo:block>b</fo:block>", 1, "",
         "<!-- c --><fo:block>a --> b</fo:block><fo:block>b|</fo:block>"},
        // a quote opened in a tag reaches over the siblings
        {"<fo:block a=|><fo:block>b</fo:block><fo:block>c</fo:block>", 0, "\"",
         "<fo:block a=\"><fo:block>b</fo:block><fo:block>c|</fo:block>"},
        // a tag name changed under a remembered closing tag
        {"<fo:block><fo:bl|ock>a</fo:block>b</fo:block>", 0, "x",
         "<fo:block><fo:blxock>a</fo:block>b|</fo:block>"},
    };
    for (Splice const &c : cases) {
        auto before = mark(std::string(flow) + std::string(c.before));
        MarkupProbe probe(before);
        askEverywhere(probe);
        probe.spliceContent(before.at, c.removeCount, c.inserted);
        auto after = mark(std::string(flow) + std::string(c.after));
        ASSERT_EQ(probe.text(), after.text);
        expectSameAsFresh(probe, std::string(c.before));
    }
}

// Random splices of text and markup pieces, with questions in between that fill the
// memo; after each splice every position must answer as a fresh walk does.
TEST(StructureMemo, RandomSplicesOnACorpusDocument)
{
    const std::string path = foedit::test::corpusDir() + "/basic__simple.fo";
    const Core::String document = Core::String::fromUtf8(foedit::test::readFileBytes(path));
    const std::vector<const char *> pieces{
        "x",   " ",  "ab cd", "<fo:block>", "</fo:block>", "<fo:block/>", "-", "->",        "]]>",    "<!--",
        "-->", "\"", "'",     "&amp;",      ">",           "<",           "/", "<![CDATA[", "<?pi?>", "fo:"};
    std::mt19937 random(20261122);
    MarkupProbe probe(document);
    for (int round = 0; round < 25; ++round) {
        const int length = probe.text().length();
        for (int q = 0; q < 20; ++q)
            probe.getClosingTagForTagAtPosition(probe.getCurrentElementPosition(random() % length));
        const int position = static_cast<int>(random() % length);
        const int removeCount =
            std::min(static_cast<int>(random() % 4) * static_cast<int>(random() % 12), length - position);
        const Core::String inserted = (random() % 3 == 0) ? Core::String() : pieces[random() % pieces.size()];
        probe.spliceContent(position, removeCount, inserted);
        expectSameAsFresh(probe, "round " + std::to_string(round));
        if (HasFatalFailure())
            return;
    }
}

// The selection gate walks up from the second position instead of searching for the
// flow's closing tag; on real documents both tell the same for every position.
TEST(StructureMemo, SameFlowGateAgreesWithTheClosingTag)
{
    for (const char *name : {"basic__simple.fo", "basic__table.fo"}) {
        const std::string path = foedit::test::corpusDir() + "/" + name;
        MarkupProbe probe(Core::String::fromUtf8(foedit::test::readFileBytes(path)));
        MarkupProbe fresh(probe.text());
        const int flow = probe.getNextElementByName("fo:flow", 0);
        ASSERT_GT(flow, 0);
        const int inside = probe.getNextEditablePositionInXml(flow);
        const int closing = fresh.getClosingTagForTagAtPosition(flow);
        for (int p = -1; p <= probe.text().length(); ++p)
            ASSERT_EQ(probe.positionsAreInTheSameFlowElement(inside, p), flow < p && p <= closing)
                << name << " at " << p;
    }
}
