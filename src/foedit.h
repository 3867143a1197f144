#pragma once

// The umbrella header: everything a host needs.

#include "support/Exception.h"
#include "support/Object.h"
#include "support/SmartPtr.h"
#include "support/String.h"
#include "support/Vector.h"
#include "support/WhiteSpace.h"
