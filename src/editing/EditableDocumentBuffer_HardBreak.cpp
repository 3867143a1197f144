// The paragraph break: the block splits at the caret, and every inline around the
// caret is closed and opened again on the new line.
//
//   <fo:block color="red"><fo:inline font-weight="bold">ab|cd</fo:inline></fo:block>
//   -> <fo:block color="red"><fo:inline font-weight="bold">ab</fo:inline></fo:block>
//      <fo:block color="red"><fo:inline font-weight="bold">|cd</fo:inline></fo:block>
//
// Where the caret stands in something that holds no text of its own (a cell, a flow)
// or directly in a form, the text from the caret on is wrapped in a new block instead.
#include "editing/EditableDocumentBuffer.h"

#include "editing/DeletionConstants.h"
#include "editing/DeletionSteps.h"

using namespace DeletionConstants;

class HardBreakSteps : public DeletionSteps {
public:
    using DeletionSteps::DeletionSteps;

    Core::String run();

private:
    enum class Split { Block, Form, Wrap };

    bool caretCanTakeBreak();
    Split collectSplitMarkup(Core::String &closing, int &outer);
    Core::String blockSplitMarkup(Core::String const &name, int p, int inner);
    void wrapRestOfElement(int element);
    void wrapFormText(int form);
    void wrapInBlock(int start, int end);
    void fillEmptyNewElement();
    void dropLineDecorationOnEmptyLine();
};

Core::String EditableDocumentBuffer::insertHardBreak()
{
    return HardBreakSteps(*this).run();
}

Core::String HardBreakSteps::run()
{
    if (!caretCanTakeBreak())
        return Core::String();
    if (doc.hasSelectedText())
        doc.deleteSelection(false);
    Core::String closing;
    int outer = -1;
    switch (collectSplitMarkup(closing, outer)) {
    case Split::Block:
        break;
    case Split::Form:
        closing.clear();
        wrapFormText(doc.getCurrentElementPosition(outer));
        break;
    case Split::Wrap:
        wrapRestOfElement(doc.getCurrentElementPosition(doc.caret));
        return Core::String();
    }
    int const splitAt = doc.caret;
    doc.insertXmlTextAtEditablePosition(doc.caret, closing); // the caret ends in the new block
    fillEmptyNewElement();
    doc.handleElementsContainingJustWhiteSpaces(splitAt, true); // both sides of the split
    doc.handleElementsContainingJustWhiteSpaces(doc.caret, true);
    dropLineDecorationOnEmptyLine();
    return closing;
}

// Text elements split; next to a table a block can be made.
bool HardBreakSteps::caretCanTakeBreak()
{
    int const element = doc.getCurrentElementPosition(doc.caret);
    return (element >= 0 && doc.isEditableElementAtPosition(element)) || doc.afterFOTable(doc.caret) ||
           doc.beforeFOTable(doc.caret);
}

// Walks out from the caret through the inlines to the block, building in `closing`
// the markup that ends the old line and starts the new one. `outer` comes back as
// the position of the outermost inline passed, or the caret.
HardBreakSteps::Split HardBreakSteps::collectSplitMarkup(Core::String &closing, int &outer)
{
    int const inner = doc.getCurrentElementPosition(doc.caret);
    int p = doc.caret;
    outer = p;
    Core::String name = doc.getCurrentElementName(p);
    Core::String reopening;
    while (name != kForm) {
        if (doc.isBlockEditableElementName(name)) {
            closing += blockSplitMarkup(name, p, inner) + reopening;
            return Split::Block;
        }
        if (!doc.isInlineEditableElementName(name))
            return Split::Wrap; // a cell, a flow: no text element to split
        int const element = doc.getCurrentElementPosition(p);
        int const afterStartTag = doc.getNextEditablePositionInXml(element);
        if (element < 0 || element >= p || afterStartTag <= element)
            return Split::Wrap;
        closing += "</" + name + ">";
        reopening = doc.content.subString(element, afterStartTag - 1) + reopening; // attributes and all
        p = element;
        outer = p;
        name = doc.getCurrentElementName(p);
    }
    return Split::Form;
}

// Closes the block, adds a line feed and the indentation, and opens the new block
// with the old one's attributes, less those a split must not copy.
Core::String HardBreakSteps::blockSplitMarkup(Core::String const &name, int p, int inner)
{
    Core::String closing = "</" + name + ">\n";
    for (int i = inner - 1; doc.content[i] == u'\t'; --i)
        closing += u'\t';
    int const block = doc.getCurrentElementPosition(p);
    if (p == doc.getNextEditablePositionInXml(block))
        closing = Core::String(kEntityPlaceholder) + closing; // the old block stays with a placeholder
    PropertyCollection properties = doc.getPropertiesFromElementAt(block);
    // A page break and an identifier must not be duplicated by a split.
    properties.removePropertyByName("fo:break-before");
    properties.removePropertyByName("fo:break-after");
    properties.removePropertyByName("fo:id");
    int const colon = name.find(u':');
    properties.removeNamespaceForPropertiesWith(colon < 0 ? Core::String() : name.subString(0, colon - 1));
    Core::String const attributes =
        properties.isEmpty() ? Core::String() : Core::String(" ") + properties.getPropertiesString();
    closing += "<" + name + attributes + ">";
    if (doc.selfClosingTagAtPosition(p) && tagNameIs(p, kBlock))
        closing += kEntityPlaceholder; // the caret stood right on a line break
    return closing;
}

// The caret stands in an element that holds no text of its own: everything from the
// caret to the element's end is wrapped in a new block.
void HardBreakSteps::wrapRestOfElement(int element)
{
    doc.addCaretMark();
    int const start = doc.caret;
    int const end = element < 0 ? -1 : doc.getClosingTagForTagAtPosition(element);
    if (end < start)
        return;
    wrapInBlock(start, end);
    doc.handleElementsContainingJustWhiteSpaces(end + 10, true);
}

// The caret stands directly in a form: the text up to the next block or the form's
// end is wrapped in a new block.
void HardBreakSteps::wrapFormText(int form)
{
    doc.addCaretMark();
    int const start = doc.caret;
    int end = form < 0 ? -1 : doc.getClosingTagForTagAtPosition(form);
    int const nextBlock = doc.getNextElementByName(kBlock, start);
    if (nextBlock > 0 && (end < 0 || nextBlock < end))
        end = nextBlock;
    if (end < start)
        return;
    wrapInBlock(start, end);
}

// <fo:block> at `start` and </fo:block> at `end`, both recorded; the caret goes to
// the first stop in the new block.
void HardBreakSteps::wrapInBlock(int start, int end)
{
    Core::String const open = kBlockStartTag;
    recordInsertion(start, open);
    doc.insertXmlTextAtPosition(start, open);
    int const shiftedEnd = end + open.length();
    recordInsertion(shiftedEnd, kBlockEndTag);
    doc.insertXmlTextAtPosition(shiftedEnd, kBlockEndTag);
    doc.setCaret(false, doc.getNextEditablePositionInFo(start, false, false));
    doc.addCaretMark();
}

// The new element at the caret has nothing in it, so it takes a placeholder. An
// inline reopened empty takes it inside, and a placeholder standing behind that
// inline has become superfluous:
//   <fo:inline>|</fo:inline>&#x00A0;  ->  <fo:inline>|&#x00A0;</fo:inline>
void HardBreakSteps::fillEmptyNewElement()
{
    int const current = doc.getCurrentElementPosition(doc.caret);
    if (current < 0 || !doc.elementContainsJustWhitespacesOrVoid(current))
        return;
    doc.insertXmlTextAtEditablePosition(doc.caret, kEntityPlaceholder);
    int const closing = positionAfterElement(doc.getCurrentElementPosition(doc.caret));
    int const behind = closing;
    if (doc.isOnInvalidPosition(behind) || !doc.inEditableElement(behind) ||
        !doc.content.matchesAt(behind, kEntityPlaceholder))
        return;
    doc.addCaretMark();
    recordDeletion(behind, doc.deleteXmlText(behind, behind + 7));
    doc.addCaretMark();
}

// A new empty line does not inherit underline, overline or line-through: they are
// taken off every element from the empty inline at the caret out to its block.
void HardBreakSteps::dropLineDecorationOnEmptyLine()
{
    static char const *const decorations[] = {"fo:text-underline-style", "fo:text-overline-style",
                                              "fo:text-line-through-style"};
    if (!doc.isInlineEditableElementName(doc.getCurrentElementName(doc.caret)))
        return;
    int element = doc.getCurrentElementPosition(doc.caret);
    if (element >= 0 && doc.elementContainsJustNonBreakingSpace(element)) {
        while (element >= 0) {
            PropertyCollection properties = doc.getPropertiesFromElementAt(element);
            bool decorated = false;
            for (char const *decoration : decorations)
                decorated = decorated || properties.containsProperty(decoration);
            if (decorated) {
                doc.clearPropertiesForElementAt(element);
                for (char const *decoration : decorations)
                    properties.removePropertyByName(decoration);
                doc.setPropertiesForElementAt(element, properties);
            }
            if (tagNameIs(element, kBlock))
                break;
            int const parent = doc.getCurrentElementPosition(element);
            if (parent >= element)
                break;
            element = parent;
        }
    }
    doc.addCaretMark();
}
