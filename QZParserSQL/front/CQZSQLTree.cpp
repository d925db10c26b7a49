#include "QZParserSQL/front/CQZSQLTree.h"

CQZSQLTree::CQZSQLTree() = default;
CQZSQLTree::CQZSQLTree(const CQZSQLTree&) {}
CQZSQLTree& CQZSQLTree::operator=(const CQZSQLTree&) { return *this; }  // NOLINT(cert-oop54-cpp)
CQZSQLTree::~CQZSQLTree() = default;

CQZTransformTree::~CQZTransformTree() = default;
