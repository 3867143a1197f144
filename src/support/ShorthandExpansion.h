#pragma once

#include "support/String.h"
#include "support/XslPropertyTable.h"

#include <vector>

// Reading one shorthand value into the values of its components.
namespace ShorthandExpansion {

struct Component {
    const char *name; // local name of the component
    Core::String value;
};

// The components that `value` sets, in the grammar's order. A component the value
// leaves out is either reset to its initial value (fonts, backgrounds) or, for
// borders, whose colour has no literal initial value, not set at all. False, with
// nothing set, when the value does not read under the grammar: such a shorthand is
// kept as it stands.
bool expand(XslPropertyTable::ShorthandInfo const &shorthand, Core::String const &value,
            std::vector<Component> &components);

} // namespace ShorthandExpansion
