#include "QZParserSQL/front/CQZSQLTree.h"

CQZSQLTree::CQZSQLTree() = default;
CQZSQLTree::CQZSQLTree(const CQZSQLTree&) {}
CQZSQLTree& CQZSQLTree::operator=(const CQZSQLTree&) { return *this; }  // NOLINT(bugprone-unhandled-self-assignment)
CQZSQLTree::~CQZSQLTree() = default;

CQZTransformTree::~CQZTransformTree() = default;
