#include "common/MarkedDocument.h"

#include "support/DocumentFile.h"
#include "support/Exception.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

using foedit::test::loadMarked;
using foedit::test::loadMarkedDocument;
using foedit::test::markedFlow;
using foedit::test::wrapInFlow;

namespace {

class ExportProbe : public EditableDocumentBuffer {
public:
    using EditableDocumentBuffer::getAllPageSequencesWrappedInRoot;
    using EditableDocumentBuffer::indentXmlText;
};

SmartPtr<ExportProbe> makeProbe()
{
    return foedit::test::makeStandardBuffer<ExportProbe>();
}

Core::String plainTextOf(Core::String const &markedBody)
{
    auto buffer = makeProbe();
    loadMarked(*buffer, markedBody);
    return buffer->getSelectionAs(PlainText);
}

// A file in the test's own temporary folder, removed with it.
class TemporaryFolder {
public:
    TemporaryFolder()
        : path(std::filesystem::temp_directory_path() /
               ("foedit-export-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "-" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name()))
    {
        std::filesystem::create_directories(path);
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path); }
    Core::String file(const char *name) const { return (path / name).string(); }

    std::filesystem::path path;
};

} // namespace

TEST(ExportSelection, NothingSelectedOrAnUnknownFormatGivesNothing)
{
    auto buffer = makeProbe();
    loadMarked(*buffer, "<fo:block>ab|c</fo:block>");
    EXPECT_EQ(buffer->getSelectionAs(PlainText), "");
    EXPECT_EQ(buffer->getSelectionAs(NativeText), "");
    loadMarked(*buffer, "<fo:block>a^b|c</fo:block>");
    EXPECT_EQ(buffer->getSelectionAs(static_cast<TextFormat>(1)), "");
    EXPECT_EQ(buffer->getSelectionAs(static_cast<TextFormat>(7)), "");
    EXPECT_EQ(buffer->getSelectionAs(PlainText), "b\n");
}

TEST(ExportSelection, PlainTextBreaksLinesAtBlocksNotAtInlines)
{
    EXPECT_EQ(plainTextOf("<fo:block>a^b</fo:block><fo:block>c<fo:inline>d</fo:inline>e|f</fo:block>"),
              "b\ncde\n");
    EXPECT_EQ(plainTextOf("<fo:block>^a<fo:block/>b|</fo:block>"), "a\nb\n");
    // Entities stay entities, the placeholder among them.
    EXPECT_EQ(plainTextOf("<fo:block>^&#x00A0;</fo:block><fo:block>a&amp;b|</fo:block>"),
              "&#x00A0;\na&amp;b\n");
}

TEST(ExportSelection, AnElementByPathLeavesOnlyTheCaretBehind)
{
    auto buffer = makeProbe();
    loadMarked(*buffer, "<fo:block>x</fo:block><fo:block>a^b<fo:inline>c|</fo:inline></fo:block>");
    Core::String path = "/fo:root/fo:page-sequence/fo:flow/fo:block";
    EXPECT_EQ(buffer->getSelectionAs(NativeText, path), "<fo:block>ab<fo:inline>c</fo:inline></fo:block>");
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>x</fo:block><fo:block>ab<fo:inline>c|</fo:inline></fo:block>");
    // The start tag of the block gives its line feed; the caret walk steps from the
    // inline's end straight out of the range.
    EXPECT_EQ(buffer->getSelectionAs(PlainText, path), "\nabc");
    EXPECT_EQ(buffer->getSelectionAs(PlainText, "/fo:root/fo:table"), "");
}

TEST(ExportWholeDocument, PageSequencesUnderACopyOfTheRoot)
{
    auto buffer = makeProbe();
    Core::String root = R"(<fo:root xmlns:fo="http://www.w3.org/1999/XSL/Format" font-size="9pt">)";
    Core::String masters = "<fo:layout-master-set><fo:page-sequence-master master-name=\"m\"/>"
                           "</fo:layout-master-set>";
    Core::String first =
        R"(<fo:page-sequence master-reference="m"><fo:flow><fo:block>a</fo:block></fo:flow></fo:page-sequence>)";
    Core::String second =
        R"(<fo:page-sequence master-reference="m"><fo:flow><fo:block>b</fo:block></fo:flow></fo:page-sequence>)";
    loadMarkedDocument(*buffer, "<?xml version=\"1.0\"?>" + root + "<!-- head -->" + masters + first + "\n" +
                                    second + "<!-- tail --></fo:root>");
    EXPECT_EQ(buffer->getAllPageSequencesWrappedInRoot(), root + first + "\n" + second + "</fo:root>");
}

TEST(ExportIndent, ElementsOnLinesOfTheirOwn)
{
    auto buffer = makeProbe();
    loadMarked(*buffer, "<fo:block>a|</fo:block>");
    EXPECT_EQ(buffer->indentXmlText("<a><b>x</b></a>", 1), "\n\t<a>\n\t\t<b>x</b>\n\t</a>");
    EXPECT_EQ(buffer->indentXmlText("<a>\n  <b/>\t<c k=\"v\">y</c></a>", 2),
              "\n\t\t<a>\n\t\t\t<b/>\n\t\t\t<c k=\"v\">y</c>\n\t\t</a>");
    EXPECT_EQ(buffer->indentXmlText("no markup", 1), "");
    // An unclosed element stays as its tag rather than losing the rest.
    EXPECT_EQ(buffer->indentXmlText("<a>x", 1), "\n\t<a>");

    // Level 0 counts the tabs in front of the caret's element.
    loadMarkedDocument(*buffer, wrapInFlow("\n\t\t<fo:block>a|</fo:block>"));
    EXPECT_EQ(buffer->indentXmlText("<b/>", 0), "\n\t\t\t<b/>");
}

TEST(ExportSave, EachEncodingLoadsBackAsTheSameString)
{
    TemporaryFolder folder;
    struct Case {
        DocumentEncoding encoding;
        const char *name;
        std::u16string text;
    };
    for (const Case &c :
         {Case{DocumentEncodingUTF8, "UTF-8", u"é€中𝄞"}, Case{DocumentEncodingUTF16, "UTF-16", u"é€中𝄞"},
          Case{DocumentEncodingISO88591, "ISO-8859-1", u"é ñ ü"}}) {
        Core::String document = wrapInFlow("<fo:block>" + Core::String(c.text) + "&amp;\"</fo:block>");
        Core::String original = Core::String("<?xml version=\"1.0\" encoding=\"") + c.name + "\"?>" +
                                document.substringAfter("?>");
        auto buffer = makeProbe();
        buffer->setContent(original, true);
        Core::String path = folder.file(c.name);
        buffer->saveToFile(path, c.encoding);
        auto loaded = makeProbe();
        loaded->setContentFromFile(path);
        EXPECT_EQ(loaded->getContent(), original) << c.name;
    }
}

TEST(ExportSave, AnUnknownEncodingWritesNothingAndAFailureIsThrown)
{
    TemporaryFolder folder;
    auto buffer = makeProbe();
    buffer->setContent(wrapInFlow("<fo:block>a</fo:block>"), true);
    buffer->saveToFile(folder.file("none.fo"), static_cast<DocumentEncoding>(0));
    EXPECT_FALSE(std::filesystem::exists(folder.path / "none.fo"));

    {
        std::ofstream old(folder.path / "old.fo");
        old << "old";
    }
    buffer->saveToFile(folder.file("old.fo"), static_cast<DocumentEncoding>(4));
    EXPECT_EQ(std::filesystem::file_size(folder.path / "old.fo"), 3u);

    // A file that cannot be written is the host's to hear of.
    EXPECT_THROW(buffer->saveToFile(folder.file("nowhere/new.fo"), DocumentEncodingUTF8), Core::IOException);
}
