#include "host/json_record.h"

#include <stdexcept>

#include "host/json_reader.h"
#include "host/unicode.h"

namespace qzsql {

namespace {

/// Returns the value of an id, which counts only when it proves to be complete.
std::string_view ReadMember(JsonReader& reader, Record& record) {
    const auto key = reader.ReadKey();
    if (key == u"id") return reader.ReadRaw();
    if (key == u"dialect") {
        record.dialect = reader.IsString() ? ToUtf8(reader.ReadString()) : std::string(reader.ReadRaw());
    } else if (key == u"sql" && reader.IsString()) {
        record.sql = reader.ReadString();
    } else {
        reader.ReadRaw();
        if (key == u"sql") record.sql.reset();
    }
    return {};
}

void ReadMembers(JsonReader& reader, Record& record) {
    reader.Expect('{');
    if (reader.Take('}')) return;
    for (bool more = true; more;) {
        const auto id = ReadMember(reader, record);
        more = reader.Take(',');
        if (!more) reader.ExpectEnd('}');
        if (!id.empty()) record.id = id;
    }
}

}  // namespace

Record ReadRecord(std::string_view line) {
    Record record;
    JsonReader reader(line);
    try {
        ReadMembers(reader, record);
        if (!reader.AtEnd()) reader.Fail("text behind the record");
        if (!record.sql) record.error = "\"sql\" is missing or no string";
    } catch (const std::runtime_error& error) {
        record.error = error.what();
    }
    return record;
}

}  // namespace qzsql
