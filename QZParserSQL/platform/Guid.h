// Fresh identities.
#pragma once

#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"

/// A new random GUID (version 4) as 38 characters: "{XXXXXXXX-XXXX-4XXX-YXXX-XXXXXXXXXXXX}" with capital digits.
/// Empty when the system gives no random bytes. Safe to call from any thread.
QZ_API CString QZNewGuid();
