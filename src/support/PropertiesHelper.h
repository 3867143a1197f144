#pragma once

#include "support/PropertyCollection.h"

// XSL-FO shorthands and initial values on a collection of properties. Names are
// qualified as elsewhere; any prefix is accepted, and a component keeps the prefix of
// its shorthand ("fo:border" gives "fo:border-top-width"). Declarations (xmlns) and
// "xml:" attributes are never touched.
class PropertiesHelper {
public:
    // Replaces every shorthand whose value reads under its grammar by its longhands,
    // in its place. Where two sources set one longhand the more precise wins: an
    // explicit longhand over "border-top" over "border-width" over "border". A value
    // that does not read stays as the shorthand it was.
    static void expandShorthands(PropertyCollection &properties);

    // The reverse: longhands fold into the shortest shorthands that read back to
    // exactly them. Four equal border sides give "border"; four paddings give
    // "padding" with one to four values; a font or background folds only when all of
    // its components are present, since the shorthand resets the ones it leaves out.
    // Empty values never fold. Existing shorthands are expanded first, so the result
    // does not depend on how the collection spelled things.
    static void collapseShorthands(PropertyCollection &properties);

    // Drops properties that are not inherited and hold their initial value:
    // border-top-style="none", padding-left="0pt", number-columns-spanned="1". An
    // inherited property is kept whatever its value, since there it overrides the
    // parent's.
    static void removeDefaultValues(PropertyCollection &properties);
};
