// What the catalog's lists of owned objects have in common: looking up, copying, keeping in a store, deleting.
#pragma once

#include <utility>

#include "QZParserSQL/catalog/QZObjectFactory.h"
#include "QZParserSQL/catalog/QZOwned.h"
#include "QZParserSQL/catalog/QZSettingsStore.h"
#include "QZParserSQL/model/CQZObjectInfo.h"
#include "QZParserSQL/platform/CList.h"

namespace qz {

/// The first object of which the getter gives this text, in any case, or null.
template <class Object>
Object* Find(const CList<Object*>& list, CString (CQZObjectInfo::*getter)() const, const CString& text) {
    for (Object* object : list) {
        if ((object->*getter)().CompareNoCase(text) == 0) return object;
    }
    return nullptr;
}

template <class Object>
bool IsAnySelected(const CList<Object*>& list) {
    for (Object* object : list) {
        if (object->GetSelected() != 0) return true;
    }
    return false;
}

template <class Object>
void SelectAll(const CList<Object*>& list, int nSelected) {
    for (Object* object : list) object->SetSelected(nSelected);
}

template <class Object>
void Append(CList<Object*>& list, QZOwned<Object> object) {
    list.AddTail(object.get());
    (void)object.release();
}

template <class Object>
void DeleteAll(CList<Object*>& list) {
    while (!list.IsEmpty()) QZOwned<Object>(list.RemoveHead());
}

/// Appends a clone of each object, or of each that is selected.
template <class Object, class Prepare>
void CloneAll(CList<Object*>& list, const CList<Object*>& from, int bSelectedOnly, int nCloneFlag, Prepare prepare) {
    for (Object* object : from) {
        if (bSelectedOnly != 0 && object->GetSelected() == 0) continue;
        QZOwned<Object> clone(object->Clone(nCloneFlag));
        prepare(*clone);
        Append(list, std::move(clone));
    }
}

/// Saves each object in a subsection of the open section: the prefix and its number from 1.
template <class Object, class Save>
void SaveNumbered(QZSettingsStore* pStore, const CList<Object*>& list, const CString& prefix, Save save) {
    int number = 0;
    for (Object* object : list) {
        const QZOpenSection section(*pStore, prefix + CString::FromInt(++number), 1);
        save(*object);
    }
}

/// The same below a section of the list's own.
template <class Object, class Save>
void SaveList(QZSettingsStore* pStore, const CList<Object*>& list, const CString& name, const CString& prefix,
              Save save) {
    const QZOpenSection section(*pStore, name, 1);
    SaveNumbered(pStore, list, prefix, save);
}

/// Appends an object for each subsection of the open section, in the store's order.
template <class Object, class Load>
void LoadEach(QZSettingsStore* pStore, CList<Object*>& list, QZObjectFactory* pFactory,
              Object* (QZObjectFactory::*create)(int), int nDBType, Load load) {
    const CList<CString> names = pStore->GetSubSections();
    for (const CString& name : names) {
        QZOwned<Object> object((pFactory->*create)(nDBType));
        if (object == nullptr) continue;
        const QZOpenSection section(*pStore, name, 0);
        load(*object);
        Append(list, std::move(object));
    }
}

/// The same for the objects below a section of the list's own.
template <class Object>
void LoadList(QZSettingsStore* pStore, CList<Object*>& list, QZObjectFactory* pFactory,
              Object* (QZObjectFactory::*create)(int), int nDBType, const CString& name, int nCreateSection) {
    const QZOpenSection section(*pStore, name, nCreateSection);
    LoadEach(pStore, list, pFactory, create, nDBType, [&](Object& object) { object.Load(pStore, pFactory); });
}

}  // namespace qz
