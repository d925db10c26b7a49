// Values of all encodings: made of any bytes, read in every form, compared, saved and loaded.
#include <cstdlib>
#include <string>

#include "QZParserSQL/catalog/QZFieldValue.h"
#include "fuzz/FuzzInput.h"
#include "tests/support/MemoryStore.h"

namespace {

constexpr int kUtf16 = 1000;
constexpr int kHighestEncoding = 40;
constexpr int kTypes = 9;  // from -1 on

/// From -1 on, with some that no set has.
int AnyEncoding(FuzzInput& input) {
    const int encoding = input.Below(kHighestEncoding + 3) - 1;
    return encoding > kHighestEncoding ? kUtf16 : encoding;
}

const unsigned char* Unsigned(const std::string& bytes) { return reinterpret_cast<const unsigned char*>(bytes.data()); }

QZFieldValue AnyValue(FuzzInput& input) {
    const int type = input.Below(kTypes) - 1;
    QZFieldValue value;
    switch (input.Below(6)) {
        case 0: {
            const std::string bytes = input.TakeText();
            value.SetBytes(Unsigned(bytes), static_cast<std::uint32_t>(bytes.size()), type);
            break;
        }
        case 1: {
            const int encoding = AnyEncoding(input);
            const std::string bytes = input.TakeText();
            if (encoding != kUtf16) value.SetString(bytes.c_str(), encoding, type);
            break;
        }
        case 2:
            value.SetWideString(TextOf(input.TakeText()).GetString(), type);
            break;
        case 3:
            value.SetNumber(input.Take<double>(), type);
            break;
        case 4:
            value.SetNumber(input.Take<long long>(), type);
            break;
        default: {
            const auto days = input.Take<double>();
            value.SetDate({days, input.Below(4)}, type);
        }
    }
    if (input.Below(2) == 1) {
        const std::string bytes = input.TakeText();
        value.SetBinary(Unsigned(bytes), static_cast<std::uint32_t>(bytes.size()));
    }
    return value;
}

void ReadAll(const QZFieldValue& value, int encoding) {
    value.GetText(encoding);
    value.GetWideText();
    std::uint32_t length = 0;
    value.GetBytes(length);
    value.GetBinary(length);
    value.GetInt();
    value.GetLong();
    value.GetInt64();
    value.GetFloat();
    value.GetDouble();
    DateToString(value.GetDate(), u"%c %U %%");
}

void Require(bool holds) {
    if (!holds) std::abort();
}

void CheckCopy(const QZFieldValue& value, QZFieldValue& copy, int encoding) {
    constexpr int kFloatingPoint = 3;  // which may be no number, and then equals nothing
    copy.Assign(value);
    Require(value.GetType() == kFloatingPoint || (copy.EqualsStrict(value) && copy.Equals(value)));
    ReadAll(copy, encoding);
}

/// A loaded value says the same; the type 0 is no value there.
void CheckStore(const QZFieldValue& value, int encoding) {
    MemoryStore store;
    value.Save(&store);
    QZFieldValue loaded;
    loaded.Load(&store);
    Require(loaded.IsNull() == (value.IsNull() || value.GetType() == 0));
    Require(loaded.IsNull() || CString(loaded.GetWideText()) == CString(value.GetWideText()));
    ReadAll(loaded, encoding);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(BytesOf(data, size));
    const int encoding = AnyEncoding(input);
    const QZFieldValue one = AnyValue(input);
    QZFieldValue other = AnyValue(input);
    ReadAll(one, encoding);
    ReadAll(other, encoding);
    Require(one.NotEqual(other) != one.EqualsStrict(other));
    CheckStore(one, encoding);
    CheckStore(other, encoding);
    CheckCopy(one, other, encoding);
    return 0;
}
