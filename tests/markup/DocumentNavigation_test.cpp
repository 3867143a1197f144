// The document buffer's members built on the markup walks, and BufferAlg's forwarding.

#include "algorithms/BufferAlg.h"
#include "common/EditCheck.h"
#include "common/MarkedDocument.h"
#include "editing/EditableDocumentBuffer.h"

#include <gtest/gtest.h>

using namespace foedit::test;

namespace {

class NavigationProbe : public EditableDocumentBuffer {
public:
    using EditableDocumentBuffer::getElementNamespace;
    using EditableDocumentBuffer::getElementPositionFromPath;
    using EditableDocumentBuffer::getSelectedElementPath;
    using EditableDocumentBuffer::getSelectionAsNativeText;
    using EditableDocumentBuffer::updateRootNamespaces;
};

SmartPtr<NavigationProbe> load(Core::String const &markedDocument)
{
    return makeMarkedDocumentBuffer<NavigationProbe>(markedDocument);
}

class AlgProbe : public BufferAlgorithms::BufferAlg {
public:
    using BufferAlg::BufferAlg;
    using BufferAlg::getCaretPos;
    using BufferAlg::getClosingTagForTagAtPosition;
    using BufferAlg::getNextElementByName;
    using BufferAlg::getRootElement;
    using BufferAlg::searchParent;
};

const char *const kDocument =
    "<?xml version=\"1.0\"?><fo:root xmlns:fo=\"F\" xmlns:ot=\"O\"><fo:page-sequence>"
    "<fo:flow><fo:block><ot:x xmlns:ot=\"P\">a|b</ot:x></fo:block>"
    "<fo:block>c</fo:block></fo:flow></fo:page-sequence></fo:root>";

} // namespace

TEST(DocumentNavigation, ParentAndPathsFromTheCaret)
{
    auto doc = load(kDocument);
    const Core::String text = doc->getContent();
    const int block = text.find("<fo:block>"), inner = text.find("<ot:x");

    int position = doc->getCaretPos();
    Core::String name = "unchanged";
    doc->getParentElementNameAndPosition(position, name);
    EXPECT_EQ(position, inner);
    EXPECT_EQ(name, "fo:block");
    position = text.find("<fo:root") + 1; // inside the root's start tag: nothing around it
    name = "unchanged";
    doc->getParentElementNameAndPosition(position, name);
    EXPECT_EQ(position, -1);
    EXPECT_EQ(name, "unchanged");

    EXPECT_EQ(doc->getElementPositionFromPath("/fo:root/fo:page-sequence/fo:flow/fo:block"), block);
    EXPECT_EQ(doc->getElementPositionFromPath("/fo:root/fo:page-sequence/fo:flow/fo:block", block + 10),
              block);
    EXPECT_EQ(doc->getElementPositionFromPath("/fo:root/fo:layout-master-set"), -1);
    EXPECT_EQ(doc->getSelectedElementPath(inner), "/fo:root/fo:page-sequence/fo:flow/fo:block/ot:x");
    EXPECT_EQ(doc->getElementNamespace(inner), "ot");
    EXPECT_EQ(doc->getElementNamespace(text.find("</fo:block>")), "fo");
    EXPECT_EQ(doc->getElementNamespace(text.find(">ab<") + 1), ""); // text
}

TEST(DocumentNavigation, NamespacesAndNativeTextOfTheSelection)
{
    auto doc = load(kDocument);
    EXPECT_EQ(doc->getNamespaces(), " xmlns:fo=\"F\" xmlns:ot=\"P\"");
    EXPECT_EQ(doc->getSelectionAsNativeText(), ""); // nothing selected

    // The selection's end is exclusive, so "b" up to the block after it.
    auto selected =
        load("<?xml version=\"1.0\"?><fo:root><fo:page-sequence><fo:flow>"
             "<fo:block>a^b</fo:block><fo:block>c|d</fo:block></fo:flow></fo:page-sequence></fo:root>");
    EXPECT_EQ(selected->getSelectionAsNativeText(), "<fo:block>b</fo:block><fo:block>c</fo:block>");
}

TEST(BufferAlg, ForwardsToTheDocumentAndThrowsWithout)
{
    auto doc = load(kDocument);
    const Core::String text = doc->getContent();
    AlgProbe alg(SmartPtr<EditableDocumentBuffer>(doc.get()));
    EXPECT_EQ(alg.getCaretPos(), doc->getCaretPos());
    EXPECT_EQ(alg.getRootElement(), "fo:root");
    EXPECT_EQ(alg.searchParent("fo:flow", doc->getCaretPos()), text.find("<fo:flow>"));
    EXPECT_EQ(alg.getNextElementByName("fo:block", text.find("<fo:block>")), text.rFind("<fo:block>"));
    EXPECT_EQ(alg.getClosingTagForTagAtPosition(text.find("<fo:flow>")), text.find("</fo:flow>"));

    AlgProbe empty{SmartPtr<EditableDocumentBuffer>()};
    EXPECT_THROW(empty.getCaretPos(), Core::NullPointerException);
    EXPECT_THROW(empty.searchParent("fo:flow", 0), Core::NullPointerException);
    EXPECT_THROW(empty.getRootElement(), Core::NullPointerException);
}

TEST(DocumentNavigation, PastedNamespacesAreDeclaredOnTheRoot)
{
    const char *const before = "<?xml version=\"1.0\"?><fo:root xmlns:fo=\"F\"><fo:page-sequence><fo:flow>"
                               "<fo:block>a|b</fo:block></fo:flow></fo:page-sequence></fo:root>";
    const char *const after =
        "<?xml version=\"1.0\"?><fo:root xmlns:fo=\"F\" xmlns:ot=\"O\"><fo:page-sequence>"
        "<fo:flow><fo:block>a|b</fo:block></fo:flow></fo:page-sequence></fo:root>";
    int shift = 0;
    EditCheck::document(before).expectOn<NavigationProbe>(
        [&shift](NavigationProbe &buffer) { shift = buffer.updateRootNamespaces("xmlns:ot=\"O\""); }, after);
    EXPECT_EQ(shift, Core::String(" xmlns:ot=\"O\"").length());
}
