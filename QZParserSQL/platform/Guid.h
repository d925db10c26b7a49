// Fresh identities.
#pragma once

#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"

/// A new random GUID (version 4) as 38 characters: "{3F2504E0-4F89-41D3-9A0C-0305E82C3301}" with capital digits.
/// Empty when the system gives no random bytes. Safe to call from any thread.
QZ_API CString QZNewGuid();
