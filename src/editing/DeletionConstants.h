#pragma once

// Element names and markup the Delete, Backspace and Enter code writes or looks for,
// and the bound on its recursions.
namespace DeletionConstants {

// Delete and Backspace recurse once per element they empty or cross; a document
// needs more than this only if it is malformed, and then the key stops there.
inline constexpr int kMaxDeletionDepth = 256;

inline constexpr char const *kBlock = "fo:block";
inline constexpr char const *kBlockClosing = "/fo:block";
inline constexpr char const *kBlockClosingPrefix = "</fo:block"; // also "</fo:block-container"
inline constexpr char const *kBlockStartTag = "<fo:block>";
inline constexpr char const *kBlockEndTag = "</fo:block>";
inline constexpr char const *kLineBreak = "<fo:block />";       // what Enter writes
inline constexpr char const *kCompactLineBreak = "<fo:block/>"; // what a dissolved nested block leaves
inline constexpr char const *kEntityPlaceholder = "&#x00A0;";
inline constexpr char16_t const *kRawPlaceholder = u"\u00A0";
inline constexpr char const *kEmptyInline = "<fo:inline>&#x00A0;</fo:inline>";

inline constexpr char const *kFlow = "fo:flow";
inline constexpr char const *kFlowClosingPrefix = "</fo:flow";
inline constexpr char const *kStaticContent = "fo:static-content";
inline constexpr char const *kListBlock = "fo:list-block";
inline constexpr char const *kListItemLabel = "fo:list-item-label";
inline constexpr char const *kTable = "fo:table";
inline constexpr char const *kTableClosing = "/fo:table";
inline constexpr char const *kTableCell = "fo:table-cell";
inline constexpr char const *kTableFooter = "fo:table-footer";
inline constexpr char const *kTableRow = "fo:table-row";
inline constexpr char const *kForm = "ot:form";
inline constexpr char const *kConditionalInline = "otd:conditional-inline";
inline constexpr char const *kInlineRepeat = "otd:inline-repeat";

} // namespace DeletionConstants
