#include "QZParserSQL/model/CQZSourceFildInfo.h"

CQZSourceFildInfo::~CQZSourceFildInfo() = default;
