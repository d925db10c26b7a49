#include "QZParserSQL/model/SelectItem.h"

#include <utility>

#include "QZParserSQL/model/Copier.h"
#include "QZParserSQL/model/Dispose.h"

SelectItem::SelectItem(const SelectItem& other) : SelectItem(other, qz::Bare()) { qz::CopyOwned(other, *this); }

SelectItem::SelectItem(const SelectItem& other, qz::Bare /*bare*/)
    : IsNested(other.IsNested),
      FuncName(other.FuncName),
      TokenType(other.TokenType),
      Text(other.Text),
      ItemKind(other.ItemKind),
      IsOperator(other.IsOperator),
      QuoteOpen(other.QuoteOpen),
      QuoteClose(other.QuoteClose),
      HasCalculatedField(other.HasCalculatedField) {}

SelectItem::~SelectItem() { ClearChildren(); }

SelectItem* SelectItem::Clone() const { return new SelectItem(*this); }

CString SelectItem::GetSQLText() const { return Text; }

CString SelectItem::BuildText() const {
    if (IsOperator == 0) return FuncName + u"(" + JoinChildren() + u")";
    return Children.GetHead()->GetSQLText() + u" " + FuncName + u" " + Children.GetTail()->GetSQLText();
}

CString SelectItem::JoinChildren() const {
    CString text;
    for (POSITION position = Children.GetHeadPosition(); position != nullptr;) {
        text += Children.GetNext(position)->GetSQLText();
        if (position != nullptr) text += u',';
    }
    return text;
}

void SelectItem::ClearChildren() {
    for (SelectItem* child : Children) {
        if (child == nullptr) continue;
        for (SelectItem* grandchild : child->Children) qz::Dispose(grandchild);
        child->Children.RemoveAll();
        qz::Dispose(child);
    }
    Children.RemoveAll();
}

void SelectItem::SetQuoteOpen(CString strQuote) { QuoteOpen = std::move(strQuote); }

void SelectItem::SetQuoteClose(CString strQuote) { QuoteClose = std::move(strQuote); }
