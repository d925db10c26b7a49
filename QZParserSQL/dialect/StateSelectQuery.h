// The walker: it turns the syntax tree of one SELECT into its query model. One base for all dialects; a dialect brings
// its row of traits and the steps that it does in a way of its own.
#pragma once

#include <memory>

#include "QZParserSQL/dialect/NodeKind.h"
#include "QZParserSQL/dialect/QueryWalk.h"
#include "QZParserSQL/front/CQZSQLTree.h"
#include "QZParserSQL/model/CFieldObject.h"
#include "QZParserSQL/model/CQZQueryInfo.h"
#include "QZParserSQL/model/SelectItem.h"
#include "QZParserSQL/platform/CList.h"
#include "QZParserSQL/platform/CMap.h"
#include "QZParserSQL/platform/CString.h"

class SelectItemField;

/// What the walkers of the dialects differ in by yes or no, or by a value.
struct WalkerTraits {
    enum class SortWord { Beside, Below, EmptyBelow };

    /// The number of the database kind that nested queries are given.
    int dbType;
    const NodeKinds& kinds;
    /// What becomes an infix item.
    NodeKindSet operators;
    /// What is a function where it stands in a clause by itself.
    NodeKindSet clauseFunctions;
    /// Names stand in backticks, which each taking of a name strips; else in brackets, which the text of a node loses.
    bool backticks;
    /// A name of a database may stand before a table's: it is stepped over, and an alias behind it is a table.
    bool databaseNames;
    /// Nested SELECTs have states of their own below the top one, and queries in its list of subqueries.
    bool childStates;
    /// The members of a union know the names around them, and are not scanned for names of their own.
    bool unionsKnowOuterNames;
    /// DISTINCTROW is a quantifier.
    bool distinctRow;
    /// TOP with one number is a limit of rows.
    bool topIsLimit;
    /// Where the blank of a join without a prefix stands; null where a join has no such slot.
    CString SelectItem::*joinSlot;
    /// Where the direction of a sort goes: an item beside the one sorted, below it, or below it and without its text.
    SortWord sortWord;
    /// A number keeps all its parts, a data type is an item of its own kind with its arguments below, other words are
    /// function names. Else a number keeps two parts, a data type is a constant, and words are texts.
    bool wholeLiterals;
    /// Words of joins and literals have the text of what is below them, which is none.
    bool wordsFromChildren;
    /// The operands of BETWEEN and LIKE are those of the function's first child; else BETWEEN's are its own.
    bool operandsBelowFirstChild;
};

/// The operators of all dialects and those of one.
NodeKindSet OperatorsWith(std::initializer_list<NodeKind> own);

/// The state of one SELECT. The steps, in this order: construct with the node, set m_pQuery, and Build; or each of its
/// parts by hand. A missing child ends a walk quietly. A build never changes the tree. One thread.
class StateSelectQuery : public CList<StateSelectQuery*, StateSelectQuery*> {
 public:
    StateSelectQuery(const WalkerTraits& traits, CQZSQLTree* pTree);
    StateSelectQuery(const StateSelectQuery&) = delete;
    StateSelectQuery& operator=(const StateSelectQuery&) = delete;
    /// Deletes the child states.
    virtual ~StateSelectQuery();

    void SetTree(CQZSQLTree* pTree) { m_pTree = pTree; }

    /// Fills the query: child states, aliases, sources, fields, each clause, GUIDs of the sources.
    void Build();
    /// Whether a bound has cut the model of this build.
    bool IsCut() { return Walk().IsFull(); }

    /// Gives each SELECT below the node a state below this one, whatever its depth, and a query in the list of
    /// subqueries.
    void BuildChildStates(CQZSQLTree& node);
    /// The scans of this state, then of its child states.
    void CollectAliases();
    void CollectSources();
    void CollectFields();
    /// Fills one clause from a child of the SELECT's node.
    void WalkClause(CQZSQLTree& node);
    /// Makes one member of a union; returns its query.
    CQZQueryInfo* BuildUnion(CQZSQLTree& node, CList<SelectItem*>& list);

    /// The node itself or the first of its first children, theirs and so on that is a SELECT; null for none.
    CQZSQLTree* SelectAtOrBelow(CQZSQLTree* pNode) const;

    /// Not owned.
    CQZQueryInfo* m_pQuery = nullptr;

 protected:
    enum class Clause { None, Select, From, Where, Having, OrderBy, GroupBy };

    /// What a name stands for where it is looked up among the aliases.
    enum class NameOf { Table, Column };

    /// The parts of a column's name, and which of them are aliases of the query.
    struct ColumnParts {
        CString table;
        CString column;
        bool hasTable = false;
        bool tableIsAlias = false;
        bool columnIsAlias = false;
    };

    virtual std::unique_ptr<StateSelectQuery> NewState(CQZSQLTree* pTree) const = 0;

    // Nodes and names.
    NodeKind KindOf(CQZSQLTree* pNode) const;
    static CQZSQLTree* ChildOf(CQZSQLTree& node, std::uint32_t index);
    CString GetNodeText(CQZSQLTree& node) const;
    CString NameAt(CQZSQLTree& node) const;
    CString WithoutQuotes(CString strName) const;
    virtual bool IsOperatorNode(CQZSQLTree& node) const;
    virtual bool IsAlias(const CString& strName, NameOf use) const;

    // Scans.
    virtual bool DeclaresAlias(NodeKind kind) const { return kind == NodeKind::ALIAS; }
    CString AliasName(CQZSQLTree& node) const;
    virtual CString AliasKey(CQZSQLTree& node, const CString& strName) const;
    /// What an alias remembers of what it names.
    virtual void NameOrigin(CQZSQLTree& node, CQZAliasInfo& alias) const;
    virtual void FillExpression(CQZSQLTree& node, SelectItem& expression);
    bool IsFillingExpression() const { return m_pNewAlias != nullptr; }
    virtual void ScanFields();

    // Steps at one node.
    void AddClauseItem(const WalkPlace& place);
    virtual void AddAsterisk(const WalkPlace& place);
    virtual void AddConstant(const WalkPlace& place) { BuildFirstLiteral(place); }
    virtual void AddOtherClauseItem(const WalkPlace& place);
    void AddFromItem(const WalkPlace& place);
    virtual void AddJoinDefinition(const WalkPlace& place);
    virtual void WalkNode(const WalkPlace& place);
    virtual void WalkOtherNode(const WalkPlace& place);
    virtual void WalkJoinWord(const WalkPlace& place) { BuildJoinWord(place); }
    virtual void WalkChildren(CQZSQLTree& node, CList<SelectItem*>& list);

    // Items, which go to the list of the place.
    void BuildOperator(const WalkPlace& place);
    virtual void BuildFunction(const WalkPlace& place);
    virtual CString FunctionName(CQZSQLTree& node) const { return node.GetText().TrimLeft(); }
    virtual CQZSQLTree* ArgumentsOf(CQZSQLTree& node, SelectItem& item, const WalkPlace& place);
    void BuildLiteral(const WalkPlace& place);
    virtual CString NumberText(CQZSQLTree& node) const;
    virtual void BuildField(const WalkPlace& place);
    void BuildTableField(const WalkPlace& place);
    void BuildJoinWord(const WalkPlace& place);
    void BuildSortWord(const WalkPlace& place);
    virtual CString NewNameText(CQZSQLTree& node) const { return GetNodeText(node); }

    // Columns and their records.
    ColumnParts ReadColumn(CQZSQLTree& node) const;
    static void FillField(SelectItemField& item, const ColumnParts& parts);
    virtual CFieldObject RecordOf(const ColumnParts& parts) const;
    virtual CFieldObject ScannedRecordOf(const ColumnParts& parts) const { return RecordOf(parts); }
    void Record(const CFieldObject& record);

    template <class Item = SelectItem>
    Item& Append(CList<SelectItem*>& list) {
        auto item = std::make_unique<Item>();
        list.AddTail(item.get());
        Walk().Count();
        return *item.release();
    }
    void Later(QueryWalk::Step step, const WalkPlace& place) { Walk().Later(*this, step, place); }
    QueryWalk& Walk();

    const WalkerTraits& m_Traits;
    /// The node of the SELECT; not owned.
    CQZSQLTree* m_pTree;
    Clause m_nClause = Clause::None;

 private:
    struct NamesOfSelect {
        const NameIndex& names;
        const NameIndex::Range& range;
    };

    NamesOfSelect NamesHere();
    NameIndex ReadNames() const;
    void ScanAliases();
    void DeclareAlias(const WalkPlace& place);
    void EnterAlias(const WalkPlace& place);
    void ScanSources();
    void ScanMember(const WalkPlace& place);
    void EndScanOfMember(const WalkPlace& place);

    void WalkClauses();
    void WalkClauseHere(const WalkPlace& place);
    void FillList(CQZSQLTree& node, CList<SelectItem*>& list, Clause clause);
    void FillWhere(CQZSQLTree& node);
    void WalkPredicate(CQZSQLTree& node);
    void LimitByTop(CQZSQLTree& node);

    void BuildFirstLiteral(const WalkPlace& place);
    void BuildDataType(CQZSQLTree& node, SelectItem& item);
    void WalkJoinPart(const WalkPlace& place);
    CString JoinedTexts(CQZSQLTree& node) const;
    CString WordText(CQZSQLTree& node) const;

    void BuildSubQuery(const WalkPlace& place);
    std::unique_ptr<CQZQueryInfo> NewQuery();
    StateSelectQuery* BeginQuery(CQZQueryInfo& query, CQZSQLTree* pSelect);
    void WalkQuery(StateSelectQuery& state);
    void CopyNamesTo(CQZQueryInfo& query);

    QueryWalk* m_pWalk = nullptr;
    std::unique_ptr<QueryWalk> m_pOwnWalk;      // of the state that a build begins with
    std::unique_ptr<CQZAliasInfo> m_pNewAlias;  // while its expression is being filled
    CString m_strNewKey;
};
