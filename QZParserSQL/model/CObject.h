// The root of objects that maps and lists of the application framework hold.
#pragma once

#include "QZParserSQL/platform/Export.h"

/// Has a virtual destructor and nothing else.
class QZ_API CObject {
 public:
    /// Nothing is made, copied or assigned here.
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
    virtual ~CObject() = default;
};
