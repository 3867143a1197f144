#pragma once

// The umbrella header: everything a host needs.

#include "editing/EditAction.h"
#include "editing/EditActionGroup.h"
#include "editing/EditActionStack.h"
#include "editing/EditableDocumentBuffer.h"
#include "editing/EditableDocumentBufferState.h"
#include "editing/FreezeNotifications.h"
#include "editing/IEditableBufferMonitor.h"
#include "support/EditableProperty.h"
#include "support/Exception.h"
#include "support/Object.h"
#include "support/PropertiesHelper.h"
#include "support/PropertyCollection.h"
#include "support/SmartPtr.h"
#include "support/String.h"
#include "support/Vector.h"
#include "support/WhiteSpace.h"
