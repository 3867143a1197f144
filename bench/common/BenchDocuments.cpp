#include "common/BenchDocuments.h"

#include "common/StandardDocument.h"
#include "common/TestPaths.h"

#include <map>
#include <utility>

namespace foedit::bench {

const char *const proseParagraph =
    "  <fo:block font-size=\"11pt\">Lorem ipsum dolor sit amet, <fo:inline font-weight=\"bold\">consectetur"
    "</fo:inline> adipiscing elit, sed do eiusmod tempor incididunt ut labore et dolore magna "
    "aliqua.</fo:block>\n";

Core::String proseAround(Core::String const &middle, long bytes, int &middleAt)
{
    Core::String const paragraph(proseParagraph);
    long const paragraphs = bytes / 2 / paragraph.length();
    Core::String body("\n");
    body.reserve(static_cast<int>(bytes / 2) + middle.length() + 64);
    for (long i = 0; i < paragraphs; ++i) {
        if (i == paragraphs / 2) {
            middleAt = test::flowBodyStart() + body.length();
            body += middle;
        }
        body += paragraph;
    }
    return test::wrapInFlow(body) + "\n";
}

Core::String repeated(Core::String const &block, int count)
{
    Core::String text;
    text.reserve(block.length() * count);
    for (int i = 0; i < count; ++i)
        text += block;
    return text;
}

Core::String corpusDocument(std::string const &fileName)
{
    return Core::String::fromUtf8(test::readFileBytes(test::corpusDir() + "/" + fileName));
}

Core::String const &replicatedCorpusDocument(std::string const &fileName, int units)
{
    static std::map<std::pair<std::string, int>, Core::String> made;
    auto found = made.find({fileName, units});
    if (found != made.end())
        return found->second;
    Core::String const text = corpusDocument(fileName);
    int const flowStart = text.find(">", text.find("<fo:flow")) + 1;
    int const flowEnd = text.find("</fo:flow>", flowStart);
    Core::String const body = text.subString(flowStart, flowEnd - 1);
    Core::String const head = text.subString(0, flowStart - 1);
    Core::String const tail = text.subString(flowEnd, text.length() - 1);
    Core::String repeatedBody;
    repeatedBody.reserve(units);
    while (!body.empty() && head.length() + repeatedBody.length() + tail.length() < units)
        repeatedBody += body;
    return made[{fileName, units}] = head + repeatedBody + tail;
}

} // namespace foedit::bench
