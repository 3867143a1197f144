#pragma once

#include "editing/BreakType.h"
#include "editing/EditAction.h"
#include "editing/EditActionStack.h"
#include "editing/IEditableBufferMonitor.h"
#include "editing/TextFormat.h"
#include "markup/EditableXmlBuffer.h"
#include "support/DocumentEncoding.h"
#include "support/PropertyCollection.h"
#include "support/SmartPtr.h"
#include "support/String.h"

#include <utility>
#include <vector>

class EditActionGroup;
class EditableTableBuffer;
class FreezeNotifications;
class EditableDocumentBufferState;
namespace Drawing {
class SpellChecker;
}
namespace BufferAlgorithms {
class WhitespaceAlg;
}

// The object a host holds for one open document: the markup string of
// EditableXmlBuffer plus a caret and a selection, the undo history, the elements that
// may hold text, the page-master modes, the cached table buffer and one monitor.
//
// The class is large, so its code is split by capability; each section below names
// the source file that holds it (EditableDocumentBuffer_<Capability>.cpp).
class EditableDocumentBuffer : public EditableXmlBuffer {
    friend class FreezeNotifications;
    friend class EditableDocumentBufferState;
    friend class EditActionGroup;
    friend class DOMBasedBuffer; // sub-buffers splice and record their commits themselves

public:
    EditableDocumentBuffer();
    ~EditableDocumentBuffer() override;
    EditableDocumentBuffer(const EditableDocumentBuffer &) = delete;
    EditableDocumentBuffer &operator=(const EditableDocumentBuffer &) = delete;

    // ---- Session: content, caret gate, selection, monitor, modes, caches ----
    // (EditableDocumentBuffer_Session.cpp; the table cache in EditableDocumentBuffer_Tables.cpp)
    // Replaces the document. Carriage return and line feed pairs become line feeds; the
    // caret goes home. Without `clearHistory` the replacement is one more undo step
    // (recorded as a pair: the first undo only sends the caret home again).
    void setContent(Core::String const &text, bool clearHistory);
    // Loads a file, decoded as its XML declaration says, and clears the history. Throws
    // Core::IOException, with the content unchanged, when the file cannot be read.
    void setContentFromFile(Core::String const &path);
    Core::String getContent() const { return content; }

    int getCaretPos() const noexcept { return caret; }
    int getSelectionPivotPos() const noexcept { return selectionPivot; }
    void setCaretPos(bool extendSelection, int position);
    bool hasSelectedText() const noexcept { return caret != selectionPivot; }
    bool offsetIsInSelection(int offset) const noexcept;
    void resetSelection();
    void resetSelectionOfElement() { selectedElement = Core::String(); }

    void setMonitor(IEditableBufferMonitor *newMonitor) noexcept { monitor = newMonitor; }
    IEditableBufferMonitor *getMonitor() const noexcept { return monitor; }

    void endKeyTypingSequence();

    void setPageMasterEditingMode(bool on) noexcept { pageMasterEditing = on; }
    bool getPageMasterEditingMode() const noexcept { return pageMasterEditing; }
    void setEditingDummyPage(bool on) noexcept { editingDummyPage = on; }
    bool isEditingDummyPage() const noexcept { return editingDummyPage; }

    void updateCacheOnBufferChange();
    void updateCacheOnCaretChange();
    void updateCacheOnSelectionChange();
    bool tableBufferCacheNull() const noexcept;

    bool isOTDDocument() const { return rootElement == "otd:document"; }
    bool isFODocument() const { return rootElement == "fo:root"; }
    bool caretIsInsideTable();
    bool caretIsInsideList();
    bool caretIsInsideListItemLabel();

    // ---- History: undo, redo and the three splices ----
    // (EditableDocumentBuffer_History.cpp)
    void undo();
    void redo();
    bool canUndo() const noexcept { return actionStack.hasMoreUndoActions(); }
    bool canRedo() const noexcept { return actionStack.hasMoreRedoActions(); }
    EditActionStack &getActionStack() noexcept { return actionStack; }

protected:
    // ---- Session (protected part) ----
    void setCaret(bool extendSelection, int position);
    int getSelectionStartIndex() const noexcept;
    int getSelectionEndIndex() const noexcept;
    void notifyBufferChanged();
    void notifyCaretChanged();
    void notifySelectionChanged();
    void updateTableBufferCache();
    bool caretIsInsideSameTable();
    // Both ends to -1, with both notifications.
    void clearCaret();
    // In page-master editing only static content holds the caret, and only off the
    // dummy page; otherwise any position.
    bool caretMayStandAt(int position);

    // ---- History (protected part) ----
    void executeAction(EditAction action);
    void insertXmlTextAtPosition(int position, Core::String text);
    Core::String deleteXmlText(int first, int last);
    void replaceXmlText(int first, int last, Core::String text);
    // Records `action` in the history (the caller has made the splice).
    void addAction(EditAction action) { actionStack.addAction(std::move(action)); }
    // Records a caret mark: the present caret and pivot.
    void addCaretMark();
    // One undo (or redo) step: one ungrouped action or one outermost group.
    void replayOneStep(bool undoing);
    // The new caret and pivot of a splice, through the caret gate, pivot first.
    void placeCaretAfterSplice(int newCaret, int newPivot, bool tagsKept);

    // ==== Navigation: members built on the markup walks: parent name and position, paths, namespaces ====
    // (EditableDocumentBuffer_Navigation.cpp)
public:
    // `position` becomes the start tag of its current element, `name` the name of the
    // element around that one (left as it was when there is none).
    void getParentElementNameAndPosition(int &position, Core::String &name) const;
    // The ancestor of the caret whose element path is `path`; -1 when none has it.
    int getElementPositionFromPath(Core::String path) const;
    // The namespace declarations in scope at the caret, each with a blank in front.
    Core::String getNamespaces() const;
    // -- end of Navigation public --
protected:
    using EditableXmlBuffer::getElementPositionFromPath;
    // The element path of `position` and the name of the tag at it.
    Core::String getSelectedElementPath(int position) const;
    // Declares `declaration` (`xmlns:p="uri"`) on the root; the result of the property edit.
    int updateRootNamespaces(Core::String const &declaration);
    // The prefix of the tag at `position`, without ":"; empty when it has none.
    Core::String getElementNamespace(int position) const;
    static bool nameContainsNamespace(Core::String const &name);
    // The selection as a well-formed fragment; empty without a selection.
    Core::String getSelectionAsNativeText() const;
    // -- end of Navigation protected --

    // ==== Caret: editable elements, caret stops, left/right/home/end, page-sequence and region moves ====
    // (EditableDocumentBuffer_Caret.cpp, _CaretSteps.cpp, _CaretMoves.cpp, _PageMoves.cpp)
    friend class BufferAlgorithms::WhitespaceAlg;

public:
    // The host names the elements whose content may hold text; a name already listed
    // is ignored. The inline ones are a subset of the editable ones.
    void addEditableElement(Core::String const &name);
    void addInlineEditableElement(Core::String const &name);
    // Listed as editable, compared without regard to case; the second form asks it of
    // the current element at `position`.
    bool elementIsEditable(Core::String name);
    bool elementIsEditable(int position);
    // True when the "fo:block" around `position` draws something before it.
    bool currentBlockContainsRenderedDataBeforePosition(int position);
    // True when the caret stands at the edge of its element in that direction.
    bool isBoudaryEditablePosition(bool forward);

    void moveCaretRight(bool extendSelection, bool byWord, bool mergeInlineBoundaries);
    void moveCaretLeft(bool extendSelection, bool byWord, bool mergeInlineBoundaries);
    // The first stop of the first flow whose element has content; -1 when none.
    void moveCaretHome(bool extendSelection);
    void moveCaretToEnd(bool extendSelection);
    void moveCaretToFirstFoFlow();
    void resetCaretFromStaticContent();
    void moveCaretToFirstStaticRegion();
    void moveCaretToStaticRegion(Core::String regionName, int pageSequenceIndex);
    bool moveCaretToPageSequence(int pageSequenceIndex);
    // Comes back to a place noted as an offset into the flow of a page sequence.
    bool moveCaretToReference(int pageSequenceIndex, int offset);
    // -- end of Caret public --
protected:
    bool isEditableElementAtPosition(int position);
    bool inEditableElement(int position);
    bool canHoldCaret(int position);
    bool isInlineEditableElementName(Core::String const &name);
    // `name` is "/" followed by an inline editable name.
    bool isInlineEditableElementClosingTagName(Core::String const &name);
    bool isBlockEditableElementName(Core::String const &name);

    // One caret stop forward or backward: atoms, then the context and rendering
    // filters. With `wrap` the walk goes round the document once.
    int getNextEditablePositionInFo(int position, bool wrap, bool mergeInlineBoundaries);
    int getPreviousEditablePositionInFo(int position, bool wrap, bool mergeInlineBoundaries);
    int getNextValidCaretPos(int position);
    int getPreviousValidCaretPos(int position);
    int getNextPositionAdjustedToFoFlow(int position);
    int getPreviousPositionAdjustedToFoFlow(int position, bool mergeInlineBoundaries);
    void adjustCaretToAnEditablePosition();
    int getNextBlock(int position);
    int getPreviousBlock(int position);
    // The first stop inside the static content called `regionName` of the page
    // sequence at `sequencePosition`, or -1.
    int getFirstEditPosInStaticContent(Core::String const &regionName, int sequencePosition);

    // Helpers of the walks. Tag names are compared in place, without building strings.
    bool tagNameIsOneOf(int position, std::vector<Core::String> const &names) const;
    bool isInlineEditableElementAt(int position) const;
    bool isBlockEditableElementAt(int position) const;
    bool isInlineEditableClosingTagAt(int position) const;
    // canHoldCaret with the current element of `position` already known.
    bool canHoldCaretIn(int position, int currentElement);
    bool isMergeableInline(int tagPosition) const;
    bool startsWithPlaceholder(int element) const;
    BufferAlgorithms::WhitespaceAlg rulesOf(int element);
    bool isCaretStop(int t, int tElement, int stepFromElement, BufferAlgorithms::WhitespaceAlg &rules);
    bool closesMergeableInline(int position, int currentElement) const;
    int getLastTagOfDocument() const;
    int getRootClosingTag() const;
    bool moveRightInTableOrder();
    bool moveLeftInTableOrder();
    bool enterTableFromBehind(int previous);
    bool enterTableFromTheFront(int next);
    int rowGroupOfTable(Core::String const &name, int position, int table);
    int positionAfterElement(int element);
    int positionBeforeElementEnd(int element);
    int firstStopInside(int element);

    // ---- Current elements remembered for one caret operation (EditableDocumentBuffer_CaretMemo.cpp) ----
    // A stepping walk knows the current element of each position it reaches from the
    // atom it crossed. While a caret operation runs the string cannot change, so a
    // WalkScope keeps those answers until it ends. Without an open scope the same
    // functions simply walk; walks up through ancestors are remembered by the markup
    // layer across operations.
    class WalkMemo;
    class WalkScope {
    public:
        explicit WalkScope(EditableDocumentBuffer &buffer);
        ~WalkScope();
        WalkScope(WalkScope const &) = delete;
        WalkScope &operator=(WalkScope const &) = delete;

    private:
        EditableDocumentBuffer &buffer;
        WalkMemo *opened = nullptr; // the memo this scope opened, null when it joined one
    };
    // getCurrentElementPosition, remembered.
    int currentElementOf(int position);
    // A walk that knows the current element of a position tells the memo.
    void noteCurrentElement(int position, int element);
    // The current element of the start tag at `element`: its parent.
    int parentElementOf(int element);
    // The nearest of `element` and its ancestors called `name`; with `belowRoot` the walk
    // gives -1 at the root, otherwise the root itself is tested last.
    int ancestorNamed(int element, Core::String const &name, bool belowRoot);
    // The current element of `to`, one atom after `from` whose current element is
    // `fromElement`, worked out from the atom crossed; and of `to`, one atom before a
    // position whose current element is `fromElement`.
    int currentElementAfterStep(int from, int fromElement, int to);
    int currentElementBeforeStep(int fromElement, int to);
    // isInFoFlow and searchParent("fo:table", ...), remembered.
    bool isInFlowAt(int position);
    int tableAround(int position);
    bool sameElementNamed(Core::String const &name, int first, int second);
    // `ancestor` is `element` or one of the elements around it.
    bool hasAncestor(int element, int ancestor);
    WalkMemo *walkMemo = nullptr; // open while a caret operation runs
    // -- end of Caret protected --

    // ==== Words: word jumps and the selection commands ====
    // (EditableDocumentBuffer_Words.cpp, EditableDocumentBuffer_Selection.cpp)
    friend class WordJumpWalk;

public:
    void jumpToNextWord(bool extendSelection);
    void jumpToPreviousWord(bool extendSelection);
    // Where jumpToPreviousWord would end from `position`, without moving anything.
    int getPreviousWordPos(int position);
    // Selects the element around the caret one level higher at each call.
    void selectParent();
    void selectCurrentElement();
    void selectElement(Core::String path);
    void selectElementStartingAtCaretPosition();
    void selectTable();
    bool hasSelectedTable();
    bool selectionCrossTable();
    // -- end of Words public --
protected:
    bool isElementSelected(Core::String const &name);
    bool selectionIsEntireElementContent(int first, int last);
    bool isWordSeparator(wchar_t character);
    // Selects from the element's start tag to the position behind its closing tag.
    void selectWholeElement(int element);
    // The first and the last caret stop inside the element, -1 for none.
    void getElementStopRange(int element, int &first, int &last);
    // -- end of Words protected --

    // ==== Typing: insertText, pasting, placeholders ====
    // (EditableDocumentBuffer_Typing.cpp, EditableDocumentBuffer_Placeholders.cpp)
public:
    // Inserts at the caret, replacing a selection. Plain text is escaped; markup
    // (`isXml`) goes in as it stands. The whole call is rolled back when it leaves the
    // markup ill formed. False when nothing could be inserted.
    bool insertText(Core::String const &text, bool isXml, bool selectInserted);
    // Refuses a position that cannot hold the caret; otherwise moves there and inserts.
    bool insertTextAtPosition(int position, Core::String const &text, bool isXml, bool selectInserted);
    // The same with formatting: the text goes in wrapped in an "fo:inline" carrying
    // `properties`, or the properties go on an element that holds just a placeholder.
    void insertText(Core::String text, PropertyCollection properties, bool isXml, bool selectInserted);
    // -- end of Typing public --
protected:
    void insertTextAtEditablePosition(int position, Core::String &text);
    void insertXmlTextAtEditablePosition(int position, Core::String text);
    void handleInsertedSpace(Core::String text);
    void handleElementsContainingJustNonBreakingSpaces(int position);
    bool handleElementsContainingJustWhiteSpaces(int position, bool deleteEmptyInline);
    bool singleNbspBetweenLineBreakTags(int position, bool &isRawNbsp, bool &nbspFollows);
    bool elementContainsJustWhitespacesOrVoid(int elementPosition);
    bool editableElementContainsJustOneMoreChar(int elementPosition);

    // Phases of insertText and insertXmlTextAtEditablePosition.
    bool insertAtCaret(Core::String &text, bool isXml, bool selectInserted);
    void deleteSelectionBeforeTyping();
    void rollBackIfMalformed(EditableDocumentBufferState &snapshot, bool typingRunWasOpen);
    void insertMarkupAtCaret(Core::String &text);
    void insertPlainTextAtCaret(Core::String &text);
    void turnTrailingPlaceholderIntoSpace();
    void dropPlaceholderAtCaret();
    bool makeBlockBesideTable(int &position, Core::String const &text);
    void dropPlaceholderBesideLineBreak(int &position);
    void putCaretInFrontOfLonePlaceholder();
    void stepCaretBackOverSwallowedSpace();
    // Phases of the placeholder repair.
    bool isRemovableEmptyInline(int element);
    bool removeEmptyInline(int element);
    void insertPlaceholderInto(int element);
    // Phases of typing with formatting.
    void bringCaretIntoNewInline();
    bool stepBackAcrossTableParts(int position);
    // -- end of Typing protected --

    // ==== SelectionDeletion: deleting a selection ====
    // (EditableDocumentBuffer_SelectionDeletion.cpp)
public:
    // Deletes [start, end) as a selection would be deleted. The caller groups the
    // records; with `keepSelection` the user's selection elsewhere survives, shifted.
    void deleteContentAtPosition(bool keepSelection, int start, int end);
    // -- end of SelectionDeletion public --
protected:
    // Deletes the current selection; `listHandled` says a list already handled it.
    Core::String deleteSelection(bool listHandled);
    // The walk that deletes [start, end) across element boundaries, recording every
    // cut. `end` is exclusive and kept up to date. The result is always empty.
    Core::String deleteSelectedXmlText(int &start, int &end, bool listHandled);

    // One walk of deleteSelectedXmlText: the range [start, end) and the running position.
    struct SelectionWalk {
        int &start;
        int &end;
        int cur;
        bool listHandled;
        bool mayMeetList; // the range starts in a list or a list starts inside it
    };
    enum class WalkStep { Continue, Finished };
    void selectWholeElementIfContentSelected(int &start, int end);
    bool rangeMayMeetList(int start, int end);
    bool closesElementAt(int tag, int element) const;
    bool closesTemplateLogic(int position) const;
    WalkStep walkOneStep(SelectionWalk &walk);
    void cutTextBeforeTag(SelectionWalk &walk, int tag);
    void repairEmptiedElement(SelectionWalk &walk);
    WalkStep enterOrCutElement(SelectionWalk &walk);
    void cutAtom(SelectionWalk &walk);
    WalkStep cutElementEndingTheRange(SelectionWalk &walk, int behind);
    void cutWholeElement(SelectionWalk &walk, int behind);
    void keepStartInFrontOfPlaceholder(SelectionWalk &walk, int element);
    WalkStep reanchor(SelectionWalk &walk, bool afterElementCut);
    WalkStep leaveElement(SelectionWalk &walk);
    WalkStep joinNeighbour(SelectionWalk &walk);
    WalkStep finishAtUnholdableEnd(SelectionWalk &walk);
    WalkStep finishAtRangeEnd(SelectionWalk &walk);
    WalkStep finishInsideTextRun(SelectionWalk &walk);
    bool deleteListInSelection(SelectionWalk &walk);
    int lastCaretPositionInList(int list, int listEnd);
    // -- end of SelectionDeletion protected --

    // ==== Spaces: walks over skipped white space shared by typing and deletion ====
    // (EditableDocumentBuffer_Spaces.cpp)
public:
    // Moves `position` back over tabs and then over one line feed: the indentation
    // in front of an element.
    void deleteSpacesBetweenTags(int &position);
    // -- end of Spaces public --
protected:
    // Move `position` back (forward) over positions whose white space draws nothing.
    // True when the walk met another element; without `crossElements` it stops there.
    bool skipSpacesBackwards(int &position, bool crossElements);
    bool skipSpacesFromPos(int &position, bool crossElements);
    bool skipSkippedPositions(int &position, bool crossElements, bool forward);
    // -- end of Spaces protected --

    // ==== Deletion: erase, Delete and Backspace at every boundary ====
    // (EditableDocumentBuffer_Deletion.cpp, EditableDocumentBuffer_DeleteForward.cpp,
    //  EditableDocumentBuffer_DeleteBackwards.cpp)
public:
    // The Delete (`forward`) and Backspace keys; `wholeWord` is the control-key
    // variant. One undo step; rolled back when it leaves the markup ill formed.
    void erase(bool forward, bool wholeWord);
    // -- end of Deletion public --
protected:
    // One erase step outside of lists. `ignored` is passed along and read by nothing.
    void eraseTextFromBuffer(bool forward, bool wholeWord, bool ignored);
    // One forward (backward) deletion at `position`, which comes back as the place
    // the caret belongs.
    void deleteForward(int &position);
    void deleteBackwards(int &position);
    // Cuts [from, end) without any record and puts the caret at `from`.
    Core::String deleteContentAndAdjustCaret(int from, int end);
    // Deletes the nearest ancestor of the caret called `name`, as one undo step.
    void deleteParent(Core::String const &name);
    bool elementIsLastBlockInFlow(int elementPosition);
    // A "fo:block" start tag at `position` whose enclosing element is a "fo:block".
    bool imbricatedBlocksContext(int position);
    // The named phases of these algorithms live in step classes beside their code.
    friend class DeletionSteps;
    friend class EraseSteps;
    friend class DeleteForwardSteps;
    friend class DeleteBackwardsSteps;
    // -- end of Deletion protected --

    // ==== Breaks: Enter, line, page and column breaks ====
    // (EditableDocumentBuffer_Breaks.cpp, EditableDocumentBuffer_HardBreak.cpp)
public:
    // Enter and the break commands; `after` puts a page or column break behind the
    // new block ("fo:break-after") instead of in front of it.
    void insertBreak(BreakType type, bool after);
    // -- end of Breaks public --
protected:
    // Enter: a paragraph break with `hard`, a line break without.
    void insertLineBreak(bool hard);
    // Splits at the caret, closing and reopening every open inline. Returns the
    // markup inserted; empty when nothing was split.
    Core::String insertHardBreak();
    // A line break, <fo:block />, with the placeholders the lines around it need.
    void insertSoftBreak();
    void insertListBreak();
    // Enter with `hard`: at a table's or form's edge, or a split of the block.
    void insertParagraphBreak();
    // A paragraph break whose new block carries the break property `name`.
    void insertBreakProperty(Core::String const &name, Core::String const &value);
    friend class HardBreakSteps;
    friend class EnterAtContainerEdge;
    // -- end of Breaks protected --

    // ==== Properties: attributes as properties, inline formatting, classes ====
    // (EditableDocumentBuffer_Properties.cpp, EditableDocumentBuffer_Formatting.cpp)
    //
    // A property name carries the namespace of its element ("fo:color"); in the markup
    // an attribute of an element of that namespace is written plain. Every write is
    // one undo step and ends a typing run.
public:
    // Of the element at `path`, or of the element the selection starts with.
    PropertyCollection getProperties(Core::String const &path);
    // Of the element of that name at `position`, or its nearest such ancestor.
    PropertyCollection getProperties(Core::String const &name, int position);
    // One collection per element of that name that starts inside the selection.
    Core::Vector<PropertyCollection> getPropertiesList(Core::String const &name);
    // The main write: on the element at `path`, on a selected element, or, for a
    // selection of text, by formatting each run of it (formatInline).
    void setProperties(PropertyCollection properties, Core::String path);
    void setProperties(PropertyCollection properties, Core::String name, int position);
    void setProperty(EditableProperty property, Core::String path);
    // Removes every attribute of the element at `path` (or of the selected element).
    void removeProperties(Core::String const &path);
    // The first value of `name` found on the element at `position` and its ancestors.
    Core::String getInheritablePropertyValueAtPosition(Core::String const &name, int position);
    // On the nearest ancestor of the caret called `elementName`.
    bool getParentProperty(Core::String elementName, Core::String propertyName, Core::String &value);
    void setParentProperty(Core::String elementName, Core::String propertyName, Core::String value);
    // The style class ("fo:class") of the selected element or the caret's element.
    void applyStyleOnElement(Core::String className, Core::String elementName);
    void getCrtElementClassName(Core::String &className, Core::String &elementName);
    // The whole markup of the element at `path`, or of the caret's ancestor `name`.
    Core::String getCrtObjectContent(Core::String path);
    Core::String getCrtObjectContent(Core::String name, bool inclusive);
    // -- end of Properties public --
protected:
    PropertyCollection getPropertiesFromElementAt(int elementPosition);
    // Merges `properties` into the start tag at `elementPosition`, declaring on the
    // root the known namespaces they use. Returns how far the string grew.
    int setPropertiesForElementAt(int elementPosition, PropertyCollection properties);
    // Cuts all attributes from the tag and returns them, leading blank included.
    Core::String clearPropertiesForElementAt(int elementPosition);
    // Formats [start, end): each run of text gets an "fo:inline" of its own, or the
    // properties go on an element whose whole content the run is.
    void formatInline(int start, int end, PropertyCollection properties);
    PropertyCollection getAndRemoveNonInlineProperties(PropertyCollection &properties);
    bool isNonInlineProperty(EditableProperty property);

    // Phases of the writes.
    // A tag that may carry attributes: not text, a comment or a CDATA section.
    bool holdsAttributes(int position) const;
    // The index where the name of the tag at `elementPosition` ends, `tagEnd` at most.
    int getTagNameEndForAttributes(int elementPosition, int tagEnd) const;
    // The index behind the element at `elementPosition` (self-closing or not), or -1.
    int getPositionBehindElement(int elementPosition);
    // Declares on the root the known namespaces `properties` use; the root's growth.
    int declareNamespacesOfProperties(int elementPosition, PropertyCollection const &properties);
    // Where a formatting run starting at `position` ends, before `end` at most.
    int findFormattingRunEnd(int position, int end);
    bool runFillsElement(int position, int runEnd, int element);
    // Wraps [position, runEnd) in a new "fo:inline" with `properties`.
    void wrapRunInInline(int &position, int &runEnd, int &end, PropertyCollection const &properties);
    // The element the class commands work on, from the selection start `start`.
    int getClassTarget(int start);
    // The selected element got `growth` more units: select it again whole.
    void reselectElement(int start, int end, int growth);
    // -- end of Properties protected --

    // ==== Export: selection as text or markup, plain text, saving ====
    // (EditableDocumentBuffer_Export.cpp)
public:
    // The selection as plain text or as a markup fragment; empty without one, and for
    // a format that is neither.
    Core::String getSelectionAs(TextFormat format);
    // The element at `path` in that form. It is selected for the moment; afterwards
    // only the caret is back, and a selection the user had is gone.
    Core::String getSelectionAs(TextFormat format, Core::String path);
    // Writes the string as it stands in `encoding`. An encoding that is none of the
    // three writes nothing; a failed write leaves the old file as it was.
    void saveToFile(Core::String const &path, DocumentEncoding encoding);
    // -- end of Export public --
protected:
    Core::String getSelectionAsPlainText();
    // The text of [start, end), entities as they stand, with a line feed at each
    // boundary of an element that is not an inline.
    Core::String getPlainText(int start, int end);
    // The whole document: the page sequences under a copy of the root start tag.
    Core::String getAllPageSequencesWrappedInRoot();
    // Markup pretty-printed with line feeds and tabs, from nesting `level` on (0: the
    // depth of the caret's element).
    Core::String indentXmlText(Core::String const &text, int level);
    // -- end of Export protected --

    // ==== Objects: document objects and settings the editing core needs ====
    // (EditableDocumentBuffer_Objects.cpp)
public:
    // True when `position` lies in a "fo:static-content", and, for a non-empty
    // `flowName`, one whose flow-name is `flowName`.
    bool isInFoStaticContent(int position, Core::String flowName);
    // True when an "ot:security" among the root's children (from the first one up to
    // "fo:layout-master-set") protects the document: object "document", protection
    // enforced, editing not allowed.
    bool documentIsProtectedFromEditing();

    // Page sequences and page masters in the string
    // (EditableDocumentBuffer_PageSequences.cpp, EditableDocumentBuffer_PageMasters.cpp).
    // A page sequence is any of "fo:page-sequence", "ot:insert-document" and
    // "otd:page-sequence-repeat"; an index counts all three in document order, from 0.
    // The index of the last sequence that starts at or before `position`; -1 before
    // the first one and outside the root.
    int getPageSequenceIdxFromPos(int position) const;
    int getCurrentPageSequenceIdx() const;
    // The markup of the "fo:simple-page-master" called `name`; empty when none is.
    Core::String getSimplePageMaster(Core::String name) const;
    // The region-name of that master's "fo:region-body"; empty when absent.
    Core::String getRegionBodyNameForPageMaster(Core::String name) const;
    // -- end of Objects public --
protected:
    // The value of a property such as "fo:flow-name" on the tag at `tagPosition`, as
    // stored (entities kept): written plain in an element of the property's namespace,
    // or qualified. Empty when absent.
    Core::String getTagPropertyValue(int tagPosition, Core::String const &propertyName) const;

    // The first page sequence after `position` (one at `position` is passed); -1 for none.
    int getNextPageSeq(int position) const;
    // The sequence with that index, counted from the start of the document; -1 for none.
    int getPageSequencePosition(int index) const;
    // The "fo:page-sequence" around `position`, else the "otd:page-sequence-repeat".
    int getPageSeqPosFrom(int position) const;
    // The first "fo:flow" inside the sequence with that index; -1 when it has none.
    int getFirstFlowPositionInPageSequence(int index);
    // The master called `name`. Masters stand in front of the page sequences, so the
    // search ends at the first sequence.
    int getSimplePageMasterPosition(Core::String name) const;
    // The first of the master's side regions (before, after, start, end) in markup
    // order; -1 when it has none.
    int getFirstPageRegionFromMaster(int master) const;
    // The region-name of that region of the master called `name`; empty when absent.
    Core::String getFirstPageRegionNameFromMaster(Core::String name) const;
    bool isNonBodyRegionAtPos(int position) const;
    // The first caret stop in a "fo:static-content" child of `sequence` that flows
    // into `regionName`, or -1. `walkedTo` comes back as the last closing tag the
    // walk over the children passed, where a search for the next sequence goes on.
    int firstStopInRegionOfSequence(int sequence, Core::String const &regionName, int &walkedTo);
    // -- end of Objects protected --

    // ==== Lists: the hand-overs to the list operations ====
    // (EditableDocumentBuffer_Lists.cpp; the algorithms are in src/structures/ListEditing*)
    //
    // The list algorithms work on this class rather than on ListBuffer, since a host may
    // hold a plain EditableDocumentBuffer and still press Enter or Delete in a list.
    friend class ListEditing;

public:
    // True when the item at `path` (empty: the item around the caret) is not the only
    // item of its list.
    bool canDeleteListItem(Core::String const &path);
    // -- end of Lists public --
protected:
    // Delete and Backspace, Enter, and the list part of a selection deletion in a list.
    void eraseInList(bool forward, bool wholeWord);
    void breakInList();
    // The walk of deleteSelectedXmlText meets part of a list: the list deletes its part,
    // and the walk goes on behind it.
    void eraseListPartOfSelection(SelectionWalk &walk);
    // -- end of Lists protected --

    // ==== Tables: the table buffer of a position ====
    // (EditableDocumentBuffer_Tables.cpp)
public:
    // The buffer of the table around `position`, or around the caret for -1; the
    // cached one when it covers exactly the same stretch. Null while tables cannot be
    // edited as trees.
    SmartPtr<EditableTableBuffer> getEditableTableBuffer(int position);
    // -- end of Tables public --
protected:
    // The start tag of the innermost "fo:table" around the caret, or -1.
    int getTableAroundCaret();
    // The table start the cached buffer stands for, -1 without a cache.
    int getCachedTableStart() const;
    // Step 4 of setContent: keep, replace or clear the cache for the caret's table.
    void refreshTableCacheAfterLoad();
    // The caret moved inside the cached table: its end and the cells follow.
    void followCaretInCachedTable();
    // A selection in the cached table: the end cell goes where the pivot lies.
    void placeCachedTableEndCell();
    // -- end of Tables protected --

protected:
    // ---- Fields ----
    // Invariant after every public operation: caret and selectionPivot are both -1, or
    // both positions in content. The selection is the half-open range between them.
    int caret = -1;
    int selectionPivot = -1;      // equals caret when nothing is selected
    int findReplaceStartPos = -1; // where the running search started
    int findReplaceMatched = 0;   // 1 once the running search has matched
    EditActionStack actionStack{10000};
    Core::String selectedElement;                   // element selected as an object
    IEditableBufferMonitor *monitor = nullptr;      // not owned
    EditActionGroup *keyTypingGroup = nullptr;      // owned; open group of the typing run
    bool documentProtected = false;
    std::vector<Core::String> editableElements;       // elements whose content may hold text
    std::vector<Core::String> inlineEditableElements; // the subset treated as inline
    SmartPtr<EditableTableBuffer> tableBufferCache;   // buffer of the table the caret is in
    SmartPtr<Drawing::SpellChecker> spellChecker;
    bool pageMasterEditing = false;
    bool editingDummyPage = false;
    // Set while a splice that kept every tag moves a selection's ends: the selection
    // stood in one flow and still does, so the caret gate need not walk to ask.
    bool selectionStaysInItsFlow = false;
};
