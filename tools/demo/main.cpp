// The main job until the command-line host exists: open a document, type into it,
// save it, and show that the saved file reads back as it was written.
//
//   foedit_demo <input.fo> <output.fo>
//
// For now it goes through the file layer only (Core::IO) and types by a splice of
// its own; the document buffer's setContentFromFile, insertText, undo and saveToFile
// take over here once they are built.
#include "foedit.h"

#include <iostream>

namespace {

// Puts `text` at the start of the first block of the flow: what typing at the
// document's first caret position does.
Core::String typeIntoFirstBlock(Core::String content, const Core::String &text)
{
    const int flow = content.find("<fo:flow");
    const int block = content.find("<fo:block", flow < 0 ? 0 : flow);
    const int blockEnd = content.find('>', block);
    if (flow < 0 || block < 0 || blockEnd < 0)
        return content;
    content.insert(blockEnd + 1, text);
    return content;
}

int run(const Core::String &input, const Core::String &output)
{
    const Core::String original = Core::IO::readDocumentFile(input);
    std::cout << "read " << input << ": " << original.length() << " code units\n";

    const Core::String typed = typeIntoFirstBlock(original, "Dear reader, ");
    std::cout << "typed: " << typed.length() - original.length() << " code units more\n";

    Core::IO::writeDocumentFile(output, typed, DocumentEncodingUTF8);
    const bool same = Core::IO::readDocumentFile(output) == typed;
    std::cout << "saved " << output << ": " << (same ? "reads back the same" : "DIFFERS") << "\n";
    return same ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::cerr << "usage: foedit_demo <input.fo> <output.fo>\n";
        return 2;
    }
    try {
        return run(argv[1], argv[2]);
    } catch (const Core::Exception &error) {
        std::cerr << "foedit_demo: " << error.what() << "\n";
        return 1;
    }
}
