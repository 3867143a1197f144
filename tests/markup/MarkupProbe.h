#pragma once

// A document written as markup with positions marked, and a buffer that opens the
// protected scanners to the tests.
//
//   "<fo:block>^ab|cd</fo:block>"   `|` marks the position asked about, `^` the expected
//                                   answer; a missing marker reads as -1.

#include "markup/EditableXmlBuffer.h"

#include <string_view>

namespace foedit::test {

struct MarkedText {
    Core::String text;
    int at = -1;       // the `|`
    int expected = -1; // the `^`
};

inline MarkedText mark(std::string_view markup)
{
    MarkedText result;
    std::string plain;
    for (char c : markup) {
        if (c == '|')
            result.at = static_cast<int>(plain.size());
        else if (c == '^')
            result.expected = static_cast<int>(plain.size());
        else
            plain += c;
    }
    result.text = Core::String(plain);
    return result;
}

class MarkupProbe : public EditableXmlBuffer {
public:
    explicit MarkupProbe(Core::String text, Core::String root = "fo:root")
    {
        replaceContent(std::move(text));
        rootElement = std::move(root);
    }
    explicit MarkupProbe(MarkedText const &marked, Core::String root = "fo:root")
        : MarkupProbe(marked.text, std::move(root))
    {
    }

    Core::String const &text() const { return content; }

    using EditableXmlBuffer::afterFOTable;
    using EditableXmlBuffer::beforeFOTable;
    using EditableXmlBuffer::cdataSectionAtPosition;
    using EditableXmlBuffer::closingElementTagAtPosition;
    using EditableXmlBuffer::commentTagAtPosition;
    using EditableXmlBuffer::containsAttribute;
    using EditableXmlBuffer::convertToValidXMLText;
    using EditableXmlBuffer::elementContainsJustNonBreakingSpace;
    using EditableXmlBuffer::elementContainsPosition;
    using EditableXmlBuffer::getCharacterDataForElementAt;
    using EditableXmlBuffer::getClosingTagForTagAtPosition;
    using EditableXmlBuffer::getClosingTagsBetweenPositions;
    using EditableXmlBuffer::getCurrentElementName;
    using EditableXmlBuffer::getCurrentElementNameAndPos;
    using EditableXmlBuffer::getCurrentElementPosition;
    using EditableXmlBuffer::getCurrentElementStartTagString;
    using EditableXmlBuffer::getElementEndPosition;
    using EditableXmlBuffer::getElementPath;
    using EditableXmlBuffer::getElementPositionFromPath;
    using EditableXmlBuffer::getElementStartPosition;
    using EditableXmlBuffer::getElementTypeOnEndTagPosition;
    using EditableXmlBuffer::getElementTypeOnStartTagPosition;
    using EditableXmlBuffer::getEscapeCharacterString;
    using EditableXmlBuffer::getFirstChildPosition;
    using EditableXmlBuffer::getFirstEditablePositionInXml;
    using EditableXmlBuffer::getFirstElementByName;
    using EditableXmlBuffer::getFirstPositionInElementContaining;
    using EditableXmlBuffer::getLastPositionInElementContaining;
    using EditableXmlBuffer::getNameForAttributeAt;
    using EditableXmlBuffer::getNameForTagAtPosition;
    using EditableXmlBuffer::getNamespacesFromAllContainers;
    using EditableXmlBuffer::getNamespacesFromElementAt;
    using EditableXmlBuffer::getNativeText;
    using EditableXmlBuffer::getNextAttributePosition;
    using EditableXmlBuffer::getNextAttributeValuePosition;
    using EditableXmlBuffer::getNextChildByName;
    using EditableXmlBuffer::getNextEditablePositionInXml;
    using EditableXmlBuffer::getNextElementByName;
    using EditableXmlBuffer::getNextElementName;
    using EditableXmlBuffer::getNextElementPosition;
    using EditableXmlBuffer::getNextNeighborName;
    using EditableXmlBuffer::getNextNeighborPosition;
    using EditableXmlBuffer::getNextSiblingElementPos;
    using EditableXmlBuffer::getNextTagName;
    using EditableXmlBuffer::getNextTagPosition;
    using EditableXmlBuffer::getNonBreakingSpacePosition;
    using EditableXmlBuffer::getParentElementName;
    using EditableXmlBuffer::getParentElementPosition;
    using EditableXmlBuffer::getPathForPosition;
    using EditableXmlBuffer::getPathToParent;
    using EditableXmlBuffer::getPreviousAttributePosition;
    using EditableXmlBuffer::getPreviousEditablePositionInXml;
    using EditableXmlBuffer::getPreviousElementByName;
    using EditableXmlBuffer::getPreviousElementPosition;
    using EditableXmlBuffer::getPreviousNeighborName;
    using EditableXmlBuffer::getPreviousNeighborPosition;
    using EditableXmlBuffer::getPreviousTagName;
    using EditableXmlBuffer::getPreviousTagNameAndPos;
    using EditableXmlBuffer::getPreviousTagNameAndPosition;
    using EditableXmlBuffer::getPreviousTagPosition;
    using EditableXmlBuffer::getRootElementPos;
    using EditableXmlBuffer::getSiblingElement;
    using EditableXmlBuffer::getStartTagForTagAtPosition;
    using EditableXmlBuffer::getValueForAttributeAt;
    using EditableXmlBuffer::ignoredElementAtPosition;
    using EditableXmlBuffer::inListItemLabel;
    using EditableXmlBuffer::isInFoFlow;
    using EditableXmlBuffer::isLastValidWhiteSpaceBeforeElementClosed;
    using EditableXmlBuffer::isNbspFollowedByCloseElement;
    using EditableXmlBuffer::isOnInvalidPosition;
    using EditableXmlBuffer::namespaceIsDefined;
    using EditableXmlBuffer::namespaceSetToString;
    using EditableXmlBuffer::nbspFollowedByWspaceAndElementCloseTagAt;
    using EditableXmlBuffer::nextContentEquals;
    using EditableXmlBuffer::onTagStartPosition;
    using EditableXmlBuffer::positionsAreInSameFlowTypes;
    using EditableXmlBuffer::positionsAreInTheSameElement;
    using EditableXmlBuffer::positionsAreInTheSameFlowElement;
    using EditableXmlBuffer::positionsAreInTheSameStaticContent;
    using EditableXmlBuffer::processingInstructionTagAtPosition;
    using EditableXmlBuffer::rememberedWalksAgreeWithString;
    using EditableXmlBuffer::replaceContent;
    using EditableXmlBuffer::searchFirstParent;
    using EditableXmlBuffer::searchParent;
    using EditableXmlBuffer::selfClosingTagAtPosition;
    using EditableXmlBuffer::spliceContent;
    using EditableXmlBuffer::stepForward;
    using EditableXmlBuffer::stringArrayToReverseTagString;
    using EditableXmlBuffer::stringArrayToTagString;
    using EditableXmlBuffer::tagNameEquals;
};

} // namespace foedit::test
