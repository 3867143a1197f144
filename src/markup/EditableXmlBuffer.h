#pragma once

#include "markup/StructureMemo.h"
#include "markup/XmlElementType.h"
#include "support/Object.h"
#include "support/String.h"

#include <set>
#include <string_view>
#include <vector>

class DOMBasedBuffer;
namespace BufferAlgorithms {
class BufferAlg;
}

// The document as one flat string of markup, and the scanners that read structure
// from it by position. There is no tree: every question walks the string from a
// position, so an edit is nothing but a splice. The walks up to ancestors remember
// what they found (StructureMemo), and every splice carries those answers along.
//
// Positions are code-unit indexes; a position is valid when 0 <= p < length, and -1
// means "none". No query throws: bad positions and malformed markup give -1, false,
// an empty string or XmlNone. Several answers on odd input are deliberate and are
// relied on by the editing code (see the comments at each definition); they are not
// to be "fixed".
//
// The code is split by concern:
//   EditableXmlBuffer_Tags.cpp        what stands at a position: kinds of tag, names
//   EditableXmlBuffer_Stepping.cpp    atom steps, tag walks, matching start and end tags
//   EditableXmlBuffer_Attributes.cpp  attributes inside one tag, markup-or-text tests
//   EditableXmlBuffer_Ancestors.cpp   the current element and the walk up its ancestors
//   EditableXmlBuffer_Siblings.cpp    next and previous elements, neighbours, children
//   EditableXmlBuffer_Paths.cpp       element paths
//   EditableXmlBuffer_NativeText.cpp  escaping, character data, well-formed fragments
//   EditableXmlBuffer_Placeholders.cpp the non-breaking-space placeholder
//   EditableXmlBuffer_Namespaces.cpp  namespace declarations
//   EditableXmlBuffer_Content.cpp     the two writes of the string, which keep the memo
class EditableXmlBuffer : public Core::Object {
    // Classes that work on a document from outside, through its protected scanners.
    friend class BufferAlgorithms::BufferAlg;
    friend class DOMBasedBuffer;

public:
    using NamespaceSet = std::set<Core::String>; // declarations `xmlns:p="uri"`, in string order

    // The literals of this layer, stored once.
    static constexpr std::u16string_view CommentStart = u"<!--";
    static constexpr std::u16string_view CommentEnd = u"-->";
    static constexpr std::u16string_view CDataStart = u"<![CDATA[";
    static constexpr std::u16string_view CDataEnd = u"]]>";
    static constexpr std::u16string_view ProcessingInstructionStart = u"<?";
    static constexpr std::u16string_view ProcessingInstructionEnd = u"?>";
    static constexpr std::u16string_view NbspEntity = u"&#x00A0;";  // the placeholder, 8 units, one atom
    static constexpr std::u16string_view NbspCharacter = u"\u00A0"; // the raw placeholder

    EditableXmlBuffer() = default;
    ~EditableXmlBuffer() override = default;

    void setRootElement(Core::String const &name) { rootElement = name; }
    // Whether `position` lies inside markup (a start or a closing tag) rather than in
    // text, a comment, a CDATA section or a processing instruction.
    static bool isInsideStartTag(Core::String text, int position);
    // The first ">" at or after `from` that is outside quotes, or -1. Public for the
    // DOM sub-buffers, which cut stretches out of the same markup.
    static int findTagEnd(int from, Core::String const &text) noexcept;

    // True when an ancestor of `position` is called `name`.
    bool isInElementContext(Core::String name, int position) const;

protected:
    // ---- The writes of the string (EditableXmlBuffer_Content.cpp) ----
    // Replaces `removeCount` units at `position` by `inserted`; the remembered walks
    // move along with the text. The range must lie inside the string. True when the
    // splice left every tag as it was (plain text in text), so no walk reads otherwise.
    bool spliceContent(int position, int removeCount, Core::String const &inserted);
    // Replaces the whole string and forgets every remembered walk.
    void replaceContent(Core::String text);
    // For tests: whether every remembered answer, and the answers at `position`, are
    // the ones a fresh walk of the string gives.
    bool rememberedWalksAgreeWithString(int position) const;

    // ---- What stands at a position (EditableXmlBuffer_Tags.cpp) ----
    bool isOnInvalidPosition(int position) const noexcept { return !content.isValidIndex(position); }
    static bool isOnInvalidPosition(int position, Core::String const &text) noexcept
    {
        return !text.isValidIndex(position);
    }
    bool onTagStartPosition(int position) const noexcept { return onTagStartPosition(position, content); }
    static bool onTagStartPosition(int position, Core::String const &text) noexcept
    {
        return text.isValidIndex(position) && text[position] == u'<';
    }
    bool selfClosingTagAtPosition(int position) const { return selfClosingTagAtPosition(position, content); }
    static bool selfClosingTagAtPosition(int position, Core::String const &text);
    bool commentTagAtPosition(int position) const { return commentTagAtPosition(position, content); }
    static bool commentTagAtPosition(int position, Core::String const &text);
    bool cdataSectionAtPosition(int position) const { return cdataSectionAtPosition(position, content); }
    static bool cdataSectionAtPosition(int position, Core::String const &text);
    bool processingInstructionTagAtPosition(int position) const
    {
        return processingInstructionTagAtPosition(position, content);
    }
    static bool processingInstructionTagAtPosition(int position, Core::String const &text);
    bool ignoredElementAtPosition(int position) const { return ignoredElementAtPosition(position, content); }
    static bool ignoredElementAtPosition(int position, Core::String const &text);

    // The name of the tag at `position`; a closing tag keeps its "/" ("/fo:block").
    Core::String getNameForTagAtPosition(int position, bool keepPrefix = true) const;
    static Core::String getNameForTagAtPosition(int position, Core::String const &text);

    bool nextContentEquals(Core::String const &what, int position) const;
    static bool nextContentEquals(Core::String const &what, Core::String const &text, int position);
    static bool nextContentEquals(Core::String const &what, int position, Core::String const &text);

    XmlElementType getElementTypeOnStartTagPosition(int position) const;
    XmlElementType getElementTypeOnEndTagPosition(int position) const;
    bool closingElementTagAtPosition(int position) const;
    bool beforeFOTable(int position) const;
    bool afterFOTable(int position) const;

    // In-place helpers for hot loops: no substring is built.
    // True for the characters that end a tag name: white space, ">" and "/".
    static bool isNameTerminator(char16_t c) noexcept;
    // The index that ends the name of the tag at `position` (scanning from position + 2),
    // or -1 when the string ends first, which makes the name empty.
    static int getTagNameEnd(int position, Core::String const &text) noexcept;
    // Whether the tag at `position` has the name `name` (prefix kept, "/" of a closing
    // tag included), compared in place.
    bool tagNameEquals(int position, Core::String const &name) const noexcept
    {
        return tagNameEquals(position, name, content);
    }
    static bool tagNameEquals(int position, Core::String const &name, Core::String const &text) noexcept;
    // The same, without the prefix when `keepPrefix` is false.
    bool tagNameEquals(int position, Core::String const &name, bool keepPrefix) const noexcept;

    // ---- Atom steps and tag walks (EditableXmlBuffer_Stepping.cpp) ----
    int getNextEditablePositionInXml(int position) const;
    static int getNextEditablePositionInXml(int position, Core::String const &text);
    // The atom after `position`, or -1 when the step fails or would not move forward (an
    // unterminated comment steps back to 2): walks built on it always advance.
    int stepForward(int position) const;
    int getPreviousEditablePositionInXml(int position) const;
    int getFirstEditablePositionInXml() const;
    int getRootElementPos() const;
    Core::String getRootElementName() const { return rootElement; }

    int getNextTagPosition(int position) const;
    Core::String getNextTagName(int position) const;
    int getPreviousTagPosition(int position) const;
    static int getPreviousTagPosition(int position, Core::String const &text);
    Core::String getPreviousTagName(int position) const;
    static Core::String getPreviousTagName(int position, Core::String const &text);
    int getPreviousTagNameAndPos(int position, Core::String &name) const;
    static int getPreviousTagNameAndPosition(int position, Core::String const &text, Core::String &name);

    int getClosingTagForTagAtPosition(int position) const;
    static int getClosingTagForTagAtPosition(int position, Core::String const &text);
    int getStartTagForTagAtPosition(int position) const;
    int getElementStartPosition(XmlElementType type, int position) const;
    int getElementEndPosition(XmlElementType type, int position) const;

    // ---- Attributes inside one tag (EditableXmlBuffer_Attributes.cpp) ----
    int getNextAttributePosition(int position) const;
    int getPreviousAttributePosition(int position) const;
    Core::String getNameForAttributeAt(int position) const;
    Core::String getValueForAttributeAt(int position) const;
    int getNextAttributeValuePosition(int position) const;
    bool containsAttribute(int position, Core::String name) const;

    // ---- The current element and its ancestors (EditableXmlBuffer_Ancestors.cpp) ----
    int getCurrentElementPosition(int position) const;
    static int getCurrentElementPosition(int position, Core::String const &text);
    Core::String getCurrentElementName(int position) const;
    static Core::String getCurrentElementName(int position, Core::String const &text);
    int getCurrentElementNameAndPos(int position, Core::String &name) const;
    Core::String getCurrentElementStartTagString(int position) const;
    int getFirstPositionInElementContaining(int position) const;
    int getLastPositionInElementContaining(int position) const;
    Core::String getParentElementName(int position) const;
    int getParentElementPosition(int position) const;
    int searchParent(Core::String const &name, int position, bool outermost = false, bool keepPrefix = true,
                     Core::String stopAt = Core::String()) const;
    int searchFirstParent(std::vector<Core::String> names, int position, bool outermost = false,
                          bool keepPrefix = true, Core::String stopAt = Core::String()) const;
    bool inListItemLabel(int position) const;
    bool isInFoFlow(int position) const;
    bool positionsAreInTheSameElement(Core::String name, int first, int second) const;
    bool positionsAreInTheSameStaticContent(int first, int second) const;
    bool positionsAreInSameFlowTypes(int first, int second) const;
    bool positionsAreInTheSameFlowElement(int first, int second) const;

    // ---- Next and previous elements, neighbours, children (EditableXmlBuffer_Siblings.cpp) ----
    int getNextElementPosition(int position) const;
    Core::String getNextElementName(int position) const;
    int getPreviousElementPosition(int position) const;
    int getNextElementByName(Core::String const &name, int position) const;
    int getPreviousElementByName(Core::String const &name, int position) const;
    int getFirstElementByName(std::vector<Core::String> names, int position) const;
    int getPreviousNeighborPosition(int position) const;
    Core::String getPreviousNeighborName(int position) const;
    int getNextNeighborPosition(int position) const;
    Core::String getNextNeighborName(int position) const;
    int getNextSiblingElementPos(int element) const;
    int getSiblingElement(int element) const;
    int getNextChildByName(Core::String const &name, int element) const;
    int getFirstChildPosition(int element) const;
    bool elementContainsPosition(int element, int position) const;

    // ---- Element paths (EditableXmlBuffer_Paths.cpp) ----
    Core::String getPathForPosition(int position) const;
    Core::String getElementPath(int position) const;
    int getElementPositionFromPath(Core::String const &path, int from) const;
    static Core::String getPathToParent(Core::String const &path, Core::String name);

    // ---- Escaping, character data, fragments (EditableXmlBuffer_NativeText.cpp) ----
    static void convertToValidXMLText(Core::String &text);
    Core::String getEscapeCharacterString(int position) const;
    Core::String getCharacterDataForElementAt(int element) const;
    Core::String getNativeText(int first, int last) const;
    std::vector<Core::String> getClosingTagsBetweenPositions(int first, int last) const;
    static Core::String stringArrayToTagString(std::vector<Core::String> names);
    static Core::String stringArrayToReverseTagString(std::vector<Core::String> names);

    // ---- The placeholder (EditableXmlBuffer_Placeholders.cpp) ----
    int getNonBreakingSpacePosition(int position) const;
    bool elementContainsJustNonBreakingSpace(int element) const;
    bool isNbspFollowedByCloseElement(int position) const;
    bool nbspFollowedByWspaceAndElementCloseTagAt(int position) const;
    bool isLastValidWhiteSpaceBeforeElementClosed(int position) const;
    // The number of code units of the placeholder at `position` (8 or 1), 0 if none.
    int placeholderLengthAt(int position) const noexcept;

    // ---- Namespace declarations (EditableXmlBuffer_Namespaces.cpp) ----
    NamespaceSet getNamespacesFromElementAt(int element) const;
    NamespaceSet getNamespacesFromAllContainers(int position) const;
    static bool namespaceIsDefined(Core::String const &declaration, NamespaceSet namespaces);
    static Core::String namespaceSetToString(NamespaceSet namespaces);

private:
    // The walk of getCurrentElementPosition; with `remember` it uses and fills the memo.
    int walkToCurrentElement(int position, bool remember) const;
    bool isStartTagAt(int position) const;
    void rememberClosingTag(int start, int closing) const;
    // Whether `position`, behind the start tag `element`, comes no later than the
    // element's closing tag; found by walking up from `position`.
    bool isNotPastClosingTagOf(int element, int position) const;
    // Whether a splice of `removeCount` units at `position` by `inserted` is plain text
    // that can make or break no tag, comment, CDATA section, entity or quote.
    bool spliceIsNeutral(int position, int removeCount, Core::String const &inserted) const;
    static int stepOverMarkup(int position, Core::String const &text);
    static int staticCurrentElement(int position, Core::String const &text, bool stopAtZero);
    int searchAncestors(Core::String const *names, std::size_t count, int position, bool outermost,
                        bool keepPrefix, Core::String const &stopAt) const;
    int ancestorBelowRoot(Core::String const &name, int position) const;
    int firstElementNamedAnyOf(Core::String const *names, std::size_t count, int position) const;
    int skipPastElementAndSpaces(int position) const;
    int closingTagOfContainer(int element) const;
    Core::String pathUpFrom(int position, int rootPosition) const;
    // The text between "<" and ">" of the tag at `element`.
    Core::String startTagStringAt(int element) const;
    class NativeTextBuilder;
    bool closingTagFollowsSpaceAt(int from, bool plainSpaceOnly) const;

protected:
    // The whole document, UTF-16 code units. Every write goes through spliceContent or
    // replaceContent, which keep `structureMemo` true to it; a direct write would leave
    // the remembered walks answering for a string that is gone.
    Core::String content;
    Core::String rootElement; // qualified name of the root, given by the host

private:
    mutable StructureMemo structureMemo; // answers of walks, filled by the const queries
};
