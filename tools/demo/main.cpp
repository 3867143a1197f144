// The main job until the command-line host exists: a host's first steps. Open a
// document, type at the first caret position, undo, redo, and save it.
//
//   foedit_demo <input.fo> <output.fo>
#include "foedit.h"

#include <iostream>

namespace {

// Tells what the host would redraw.
class PrintingMonitor : public IEditableBufferMonitor {
public:
    void onBufferChanged() override { ++bufferChanges; }
    void onCaretChanged() override {}
    void onSelectionChanged() override {}
    int bufferChanges = 0;
};

// The first block of the flow, with the caret marked "|".
Core::String firstBlockWithCaret(const EditableDocumentBuffer &document)
{
    Core::String content = document.getContent();
    const int caret = document.getCaretPos();
    if (caret >= 0)
        content.insert(caret, "|");
    const int block = content.find("<fo:block", content.find("<fo:flow"));
    const int end = content.find("</fo:block>", block);
    return block < 0 || end < 0 ? Core::String() : content.subString(block, end + 10);
}

SmartPtr<EditableDocumentBuffer> openDocument(const Core::String &path, PrintingMonitor &monitor)
{
    SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer());
    document->setRootElement("fo:root");
    for (auto name : {"fo:block", "fo:inline", "fo:wrapper", "fo:basic-link", "fo:bidi-override", "ot:form"})
        document->addEditableElement(name);
    for (auto name : {"fo:inline", "fo:wrapper", "fo:basic-link", "fo:bidi-override"})
        document->addInlineEditableElement(name);
    document->setMonitor(&monitor);
    document->setContentFromFile(path);
    return document;
}

int run(const Core::String &input, const Core::String &output)
{
    PrintingMonitor monitor;
    SmartPtr<EditableDocumentBuffer> document = openDocument(input, monitor);
    const Core::String original = document->getContent();
    std::cout << "opened " << input << ": " << original.length() << " code units\n"
              << "  " << firstBlockWithCaret(*document) << "\n";

    for (const char *text : {"Dear ", "reader, "})
        document->insertText(text, false, false);
    std::cout << "typed:\n  " << firstBlockWithCaret(*document) << "\n";

    document->undo();
    const bool undone = document->getContent() == original;
    std::cout << "undone: " << (undone ? "the text is as opened" : "THE TEXT DIFFERS") << "\n";
    document->redo();
    std::cout << "redone:\n  " << firstBlockWithCaret(*document) << "\n";

    document->saveToFile(output, static_cast<DocumentEncoding>(1));
    const bool saved = Core::IO::readDocumentFile(output) == document->getContent();
    std::cout << "saved " << output << ": " << (saved ? "reads back the same" : "DIFFERS") << "\n"
              << "the monitor heard " << monitor.bufferChanges << " buffer changes\n";
    return undone && saved ? 0 : 1;
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
