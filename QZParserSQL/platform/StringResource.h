// Texts that a host keeps in its resources.
#pragma once

#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"

/// Puts the string resource `id` into `text`; false when there is none. `context` is what was set with the loader.
/// Called on whatever thread asks for the string.
using QZStringLoader = bool (*)(void* context, unsigned id, CString& text);

/// Makes a loader serve the string resources; null has none, as it is at first. The context is not owned and must
/// outlive the calls. Safe for concurrent use.
QZ_API void QZSetStringLoader(QZStringLoader loader, void* context);

/// The string resource `id`, or `otherwise` when it doesn't load. Safe for concurrent use.
QZ_API CString QZLoadString(unsigned id, const CString& otherwise);
