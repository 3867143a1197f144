#include "support/DocumentFile.h"
#include "support/Encoder.h"
#include "support/Exception.h"
#include "support/FileStream.h"
#include "support/MemoryStream.h"
#include "support/XmlReader.h"
#include "support/XmlWriter.h"

#include "common/TestPaths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace std::string_literals;
using Core::String;
using namespace Core::IO;

namespace {

// A fresh folder per test, removed afterwards.
class DocumentFileTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        folder =
            fs::temp_directory_path() / ("foedit-io-" + std::to_string(::getpid()) + "-" +
                                         ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(folder);
        fs::create_directories(folder);
        Core::setLogSink([](const String &) {}); // failures below are expected
    }
    void TearDown() override
    {
        Core::setLogSink(nullptr);
        fs::remove_all(folder);
    }

    String path(const char *name) const { return String((folder / name).string()); }
    void writeBytes(const char *name, const std::string &bytes) const
    {
        std::ofstream(folder / name, std::ios::binary) << bytes;
    }
    std::string bytesOf(const char *name) const
    {
        return foedit::test::readFileBytes((folder / name).string());
    }
    std::size_t fileCount() const
    {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }

    fs::path folder;
};

const String kLetter =
    String(u"<fo:root xmlns:fo=\"http://www.w3.org/1999/XSL/Format\"><fo:block>"
           u"Caf\u00E9 \u2022 na\u00EFve \u20AC5 \U0001F600&#x00A0;\u00A0</fo:block></fo:root>");

} // namespace

TEST_F(DocumentFileTest, EachEncodingRoundTripsTheSameString)
{
    for (const DocumentEncoding encoding :
         {DocumentEncodingUTF8, DocumentEncodingUTF16, DocumentEncodingISO88591}) {
        SCOPED_TRACE(static_cast<int>(encoding));
        // A declaration that already names the encoding is kept as it stands.
        const String text =
            "<?xml version=\"1.0\" encoding=\"" + declaredEncodingName(encoding) + "\"?>\n" + kLetter;
        ASSERT_TRUE(writeDocumentFile(path("letter.fo"), text, encoding));
        const String back = readDocumentFile(path("letter.fo"));
        if (encoding == DocumentEncodingISO88591) // what Latin-1 cannot hold comes back as references
            EXPECT_EQ(back, text.replaced(u"\u2022", "&#x2022;")
                                .replaced(u"\u20AC", "&#x20AC;")
                                .replaced(u"\U0001F600", "&#x1F600;"));
        else
            EXPECT_EQ(back, text);
    }
}

TEST_F(DocumentFileTest, BytesOnDiskMatchTheEncoding)
{
    const String text = u"<a>\u00E9\u2022</a>";
    writeDocumentFile(path("8.fo"), text, DocumentEncodingUTF8);
    EXPECT_EQ(bytesOf("8.fo"), "<a>\xC3\xA9\xE2\x80\xA2</a>");
    writeDocumentFile(path("16.fo"), text, DocumentEncodingUTF16);
    EXPECT_EQ(bytesOf("16.fo"), "\xFF\xFE<\0a\0>\0\xE9\0\x22\x20<\0/\0a\0>\0"s);
    writeDocumentFile(path("1.fo"), text, DocumentEncodingISO88591);
    EXPECT_EQ(bytesOf("1.fo"), "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<a>\xE9&#x2022;</a>");
}

TEST_F(DocumentFileTest, DeclarationIsMadeToNameTheBytes)
{
    EXPECT_EQ(XmlWriter::withDeclaredEncoding("<?xml version='1.0' encoding='utf-8' standalone='no'?><a/>",
                                              "UTF-16"),
              "<?xml version='1.0' encoding='UTF-16' standalone='no'?><a/>");
    EXPECT_EQ(XmlWriter::withDeclaredEncoding("<?xml version=\"1.0\"?><a/>", "ISO-8859-1"),
              "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a/>");
    EXPECT_EQ(XmlWriter::withDeclaredEncoding("<a/>", "UTF-8"), "<a/>");
    EXPECT_EQ(XmlWriter::withDeclaredEncoding("<?xml-stylesheet href='x'?><a/>", "UTF-16"),
              "<?xml-stylesheet href='x'?><a/>");
    // A declaration that never closes is no declaration: nothing inside it is touched.
    EXPECT_EQ(XmlWriter::withDeclaredEncoding("<?xml version=\"1.0\" encoding=\"UTF-8\"", "UTF-16"),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"");

    // Saved in another encoding than its declaration says, the file reads back right.
    const String text = String(u"<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>\u00E9</a>");
    writeDocumentFile(path("a.fo"), text, DocumentEncodingISO88591);
    EXPECT_EQ(readDocumentFile(path("a.fo")), text.replaced("UTF-8", "ISO-8859-1"));
}

TEST_F(DocumentFileTest, ReadsDeclaredAndMarkedEncodings)
{
    writeBytes("1252.fo", "<?xml version=\"1.0\" encoding=\"windows-1252\"?><a>\x80 \x93q\x94 \xE9</a>");
    EXPECT_EQ(readDocumentFile(path("1252.fo")),
              String(u"<?xml version=\"1.0\" encoding=\"windows-1252\"?><a>\u20AC \u201Cq\u201D \u00E9</a>"));

    writeBytes("latin1.fo", "<?xml version='1.0' encoding='iso-8859-1'?><a>\xE9\x80</a>");
    EXPECT_EQ(readDocumentFile(path("latin1.fo")),
              String(u"<?xml version='1.0' encoding='iso-8859-1'?><a>\u00E9\u0080</a>"));

    writeBytes("be.fo", "\xFE\xFF\0<\0a\0>\x20\x22\0<\0/\0a\0>"s);
    EXPECT_EQ(readDocumentFile(path("be.fo")), String(u"<a>\u2022</a>"));

    writeBytes("be-nomark.fo", "\0<\0?\0x\0m\0l\0 \0?\0>\0<\0a\0/\0>"s);
    EXPECT_EQ(readDocumentFile(path("be-nomark.fo")), "<?xml ?><a/>");

    writeBytes("le-nomark.fo", "<\0?\0x\0m\0l\0 \0?\0>\0\xE9\0"s);
    EXPECT_EQ(readDocumentFile(path("le-nomark.fo")), String(u"<?xml ?>\u00E9"));

    writeBytes("bom8.fo", "\xEF\xBB\xBF<a>\xC3\xA9</a>");
    EXPECT_EQ(readDocumentFile(path("bom8.fo")), String(u"<a>\u00E9</a>"));

    // No mark and no declaration: UTF-8, with bad bytes replaced rather than refused.
    writeBytes("plain.fo", "<a>\xC3\xA9\xFF</a>");
    EXPECT_EQ(readDocumentFile(path("plain.fo")), String(u"<a>\u00E9\uFFFD</a>"));

    // Only the first mark is a mark: a second U+FEFF is text and survives a save.
    writeBytes("twomarks.fo", "\xFF\xFE\xFF\xFE<\0a\0/\0>\0"s);
    EXPECT_EQ(readDocumentFile(path("twomarks.fo")), String(u"\uFEFF<a/>"));
    writeDocumentFile(path("twomarks.fo"), readDocumentFile(path("twomarks.fo")), DocumentEncodingUTF8);
    EXPECT_EQ(readDocumentFile(path("twomarks.fo")), String(u"\uFEFF<a/>"));

    // Text a reader would take for UTF-16 if it went out as bare UTF-8.
    const String zeros = String(u"\0<\0?x"s);
    writeDocumentFile(path("zeros.fo"), zeros, DocumentEncodingUTF8);
    EXPECT_EQ(readDocumentFile(path("zeros.fo")), zeros);

    writeBytes("empty.fo", "");
    EXPECT_EQ(readDocumentFile(path("empty.fo")), "");
}

TEST_F(DocumentFileTest, UnreadableFilesThrowWithThePath)
{
    for (const char *name : {"missing.fo", "."}) {
        try {
            readDocumentFile(path(name));
            ADD_FAILURE() << name;
        } catch (const Core::IOException &error) {
            EXPECT_TRUE(error.getMessage().contains(path(name))) << error.getMessage();
        }
    }
    writeBytes("klingon.fo", "<?xml version=\"1.0\" encoding=\"x-klingon\"?><a/>");
    EXPECT_THROW(readDocumentFile(path("klingon.fo")), Core::IOException);
    // ICU would match this loosely to UTF-7; no XML reader takes it for a name.
    writeBytes("garbled.fo", "<?xml version=\"1.0\" encoding=\"UT\x10"
                             "F-7\"?><a/>");
    EXPECT_THROW(readDocumentFile(path("garbled.fo")), Core::IOException);
}

TEST_F(DocumentFileTest, FailedSaveLeavesTheOldFileAndNoLitter)
{
    writeBytes("letter.fo", "old");
    fs::create_directory(folder / "sub.fo");
    EXPECT_THROW(writeDocumentFile(path("sub.fo"), "<a/>", DocumentEncodingUTF8), Core::IOException);
    EXPECT_THROW(writeDocumentFile(path("nowhere/letter.fo"), "<a/>", DocumentEncodingUTF8),
                 Core::IOException);

    // A writer that fails half-way: the stream is dropped by the exception.
    try {
        SmartPtr<FileStream> stream(new FileStream(path("letter.fo"), true, true, false));
        stream->write("new and half");
        TextWriter writer(stream.get(), "x-klingon");
        writer.write("rest");
        ADD_FAILURE() << "no exception";
    } catch (const Core::IOException &) {
    }
    EXPECT_EQ(bytesOf("letter.fo"), "old");
    EXPECT_EQ(fileCount(), 2u) << "a temporary file was left behind";

    // A number that is no encoding writes nothing at all.
    EXPECT_FALSE(writeDocumentFile(path("zero.fo"), "<a/>", static_cast<DocumentEncoding>(0)));
    EXPECT_FALSE(writeDocumentFile(path("letter.fo"), "<a/>", static_cast<DocumentEncoding>(7)));
    EXPECT_FALSE(fs::exists(folder / "zero.fo"));
    EXPECT_EQ(bytesOf("letter.fo"), "old");
}

TEST_F(DocumentFileTest, SaveReplacesThroughLinksAndKeepsPermissions)
{
    writeBytes("real.fo", "old");
    fs::permissions(folder / "real.fo",
                    fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    fs::create_symlink(folder / "real.fo", folder / "link.fo");
    ASSERT_TRUE(writeDocumentFile(path("link.fo"), "<a/>", DocumentEncodingUTF8));
    EXPECT_TRUE(fs::is_symlink(folder / "link.fo"));
    EXPECT_EQ(bytesOf("real.fo"), "<a/>");
    EXPECT_EQ(fs::status(folder / "real.fo").permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST_F(DocumentFileTest, CorpusDocumentsSurviveASaveInEachEncoding)
{
    const auto holdsOnlyLatin1 = [](const String &text) {
        return std::all_of(text.units().begin(), text.units().end(), [](char16_t c) { return c <= 0xFF; });
    };
    int latin1 = 0;
    const auto files = foedit::test::corpusFiles();
    ASSERT_FALSE(files.empty());
    for (const std::string &file : files) {
        const String original = readDocumentFile(String(file));
        ASSERT_TRUE(original.contains("fo:root")) << file;
        for (const DocumentEncoding encoding :
             {DocumentEncodingUTF8, DocumentEncodingUTF16, DocumentEncodingISO88591}) {
            if (encoding == DocumentEncodingISO88591 && !holdsOnlyLatin1(original))
                continue; // references are no text inside comments: that case is tested above
            latin1 += encoding == DocumentEncodingISO88591;
            writeDocumentFile(path("copy.fo"), original, encoding);
            const String expected = XmlWriter::withDeclaredEncoding(original, declaredEncodingName(encoding));
            ASSERT_EQ(readDocumentFile(path("copy.fo")), expected)
                << file << " in " << static_cast<int>(encoding);
        }
    }
    EXPECT_GT(latin1, 0);
}

TEST(MemoryStreamTest, ReadsWritesAndSeeksWithinItsBytes)
{
    SmartPtr<MemoryStream> stream(new MemoryStream(Core::Encoder::convertStringToUTF8(u"<a>\u00E9</a>")));
    stream->seek(99);
    EXPECT_EQ(stream->getPosition(), stream->getLength());
    stream->seek(3);
    stream->write("bc");
    stream->write("d</a>!");
    EXPECT_EQ(stream->getBytes(), "<a>bcd</a>!");
    stream->seek(-5);
    EXPECT_EQ(XmlReader(stream).readToEnd(), "<a>bcd</a>!");
}

TEST(XmlDeclarationTest, MalformedDeclarationsCountAsNone)
{
    XmlReader::Declaration declaration;
    for (const char *markup :
         {"<?xml version=\"1.0\"", "<?xml version=\"1.0\"encoding=\"x\"?>", "<?xml ?>",
          "<?xml version=\"1.0?>\"?>", "<?xml version='1.0' encoding=\"x'?>", "<?xml-model?>"}) {
        EXPECT_FALSE(XmlReader::parseDeclaration(markup, declaration)) << markup;
        EXPECT_EQ(XmlWriter::withDeclaredEncoding(markup, "UTF-8"), markup);
        // What the reader takes for no declaration, the writer does not touch but
        // puts a whole one in front of.
        EXPECT_TRUE(XmlWriter::withDeclaredEncoding(markup, "ISO-8859-1").endsWith(String("?>\n") + markup));
    }
    ASSERT_TRUE(XmlReader::parseDeclaration("<?xml version = '1.0'\tencoding= \"latin1\" ?>", declaration));
    EXPECT_EQ(declaration.versionEnd, 21);
    EXPECT_EQ(declaration.encodingFrom, 33);
    EXPECT_EQ(declaration.encodingTo, 39);
}
