#include "QZParserSQL/model/CQZSourceInfo.h"

CQZSourceInfo::~CQZSourceInfo() = default;
