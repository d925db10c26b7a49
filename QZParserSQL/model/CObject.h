// The root of objects that maps and lists of the application framework hold.
#pragma once

#include "QZParserSQL/platform/Export.h"

class QZ_API CObject {
 public:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
    virtual ~CObject() = default;
};
