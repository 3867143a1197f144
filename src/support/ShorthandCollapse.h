#pragma once

#include "support/EditableProperty.h"
#include "support/Vector.h"

// Folding longhands back into shorthands, the second half of PropertiesHelper.
namespace ShorthandCollapse {

// Replaces groups of longhands in `properties` (names unique, shorthands already
// expanded) by shorthands that read back to exactly them. Each shorthand takes the
// place of the first longhand it replaces; the other entries keep their order.
void foldLonghands(Core::Vector<EditableProperty> &properties);

} // namespace ShorthandCollapse
