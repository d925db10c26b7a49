// Values of all encodings: made of any bytes, read in every form, compared, saved and loaded.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "QZParserSQL/catalog/QZFieldValue.h"
#include "QZParserSQL/platform/TextConversion.h"
#include "tests/support/MemoryStore.h"

namespace {

constexpr int kHighestEncoding = 40;

int AnyEncoding(FuzzedDataProvider& input) {
    return input.ConsumeBool() ? input.ConsumeIntegralInRange<int>(-1, kHighestEncoding) : 1000;
}

QZFieldValue AnyValue(FuzzedDataProvider& input) {
    const int type = input.ConsumeIntegralInRange<int>(-1, 7);
    const std::string bytes = input.ConsumeRandomLengthString();
    QZFieldValue value;
    switch (input.ConsumeIntegralInRange(0, 5)) {
        case 0:
            value.SetBytes(reinterpret_cast<const unsigned char*>(bytes.data()),
                           static_cast<std::uint32_t>(bytes.size()), type);
            break;
        case 1: {
            int encoding = AnyEncoding(input);
            if (encoding == 1000) encoding = 1;  // its text is of wide characters
            value.SetString(bytes.c_str(), encoding, type);
            break;
        }
        case 2:
            value.SetWideString(std::u16string(bytes.begin(), bytes.end()).c_str(), type);
            break;
        case 3:
            value.SetNumber(input.ConsumeFloatingPoint<double>(), type);
            break;
        case 4:
            value.SetNumber(input.ConsumeIntegral<long long>(), type);
            break;
        default:
            value.SetDate({input.ConsumeFloatingPoint<double>(), input.ConsumeIntegralInRange(0, 3)}, type);
    }
    if (input.ConsumeBool())
        value.SetBinary(reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<std::uint32_t>(bytes.size()));
    return value;
}

void ReadAll(const QZFieldValue& value, FuzzedDataProvider& input) {
    for (int encoding = -1; encoding <= kHighestEncoding; ++encoding) value.GetText(encoding);
    value.GetText(AnyEncoding(input));
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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const QZFieldValue one = AnyValue(input);
    QZFieldValue other = AnyValue(input);
    ReadAll(one, input);
    if (one.Equals(other) && !other.IsNull() && one.IsNull()) __builtin_trap();
    one.EqualsStrict(other);
    ReadAll(other, input);
    other.Assign(one);
    MemoryStore store;
    other.Save(&store);
    other.Load(&store);
    ReadAll(other, input);
    return 0;
}
