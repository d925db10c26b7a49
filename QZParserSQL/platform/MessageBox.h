// Message boxes. The library has no windows of its own: a host that has some shows the boxes.
#pragma once

#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"

/// A window of the host, which the library only hands on.
using HWND = struct QZWindow*;

/// The box has an error icon.
inline constexpr unsigned MB_ICONERROR = 16;

/// Shows a box over `owner`, which may be null, and returns the button that closed it. `context` is what was set with
/// the handler. Called on whatever thread asks for the box.
using QZMessageBoxHandler = int (*)(void* context, HWND owner, const CString& text, const CString& caption,
                                    unsigned type);

/// Makes a handler show the boxes; null shows none. The context is not owned and must outlive the boxes that are open.
/// Safe for concurrent use.
QZ_API void QZSetMessageBox(QZMessageBoxHandler handler, void* context);

/// Shows a box through the host's handler and returns its result; without one, shows nothing and returns 0.
/// `type` is a sum of MB_ values. Safe for concurrent use.
QZ_API int MessageBoxW(HWND owner, const CString& text, const CString& caption, unsigned type);
