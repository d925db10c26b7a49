// What there is to show of a query's model, as nested objects, lists and maps, in the order in which it is shown.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "QZParserSQL/dialect/QZRecognizers.h"
#include "QZParserSQL/model/CQZQueryInfo.h"

namespace qzsql {

/// How a catalog's objects are shown where sources have their GUID: "table:Orders".
using ObjectLabels = std::unordered_map<CString, CString>;

struct Model {
    const QZGrammar& grammar;  // of the token types
    /// With a database of which the user functions are those that the query added.
    const CQZQueryInfo& query;
    bool isWhole = true;  // false where the build was cut
    const ObjectLabels* labels = nullptr;
};

/// What a value stands under: a member of an object, or an entry of a map, or nothing in a list.
struct ModelKey {
    std::string_view member;
    std::optional<std::u16string_view> entry;
};

/// Takes a model. The members of an object that are no objects, lists or maps come first.
class ModelSink {
 public:
    enum class Shape { Object, List, Map };

    virtual void Open(Shape shape, const ModelKey& key) = 0;
    virtual void Close() = 0;
    virtual void Number(const ModelKey& key, int number) = 0;
    virtual void Text(const ModelKey& key, std::u16string_view text) = 0;
    /// One of few names: of a class, of a token type.
    virtual void Word(const ModelKey& key, std::string_view word) = 0;

 protected:
    ModelSink() = default;
    ModelSink(const ModelSink&) = default;
    ModelSink& operator=(const ModelSink&) = default;
    ~ModelSink() = default;
};

/// Copies of an alias share its expression, so that a model can be far larger on paper than it is in memory: of
/// expressions that were shown before, only so many items and entries are shown again. The Expression of a further one
/// is shown as Cut.
constexpr std::size_t kMostShownAgain = 200'000;

/// Hands the whole model over, without recursion. Returns false where it was cut by kMostShownAgain.
bool WalkModel(const Model& model, ModelSink& sink);

}  // namespace qzsql
