#include "values/text/ElementText.h"
#include "values/text/Numbers.h"
#include "values/text/PrintFormat.h"
#include "values/text/ScanFormat.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace qzDescriptor {

// Entities, their types and qualifiers are written as some keys, each a number or a name, and then some
// integers. The last key, the subtype, is left out where there is none. Names are written as they are; one
// that holds blanks, or looks like a number, does not read back.

namespace {

/// A number or a name.
struct Key {
    long long number = 0;
    qzString name;

    bool IsName() const { return number == 0 && !name.empty(); }

    void Append(qzString& out) const {
        if (IsName())
            out += name;
        else
            AppendInteger(out, number);
    }

    FormatArgument Argument() const {
        if (IsName())
            return std::string_view(name);
        return FormatInteger::Of(number);
    }
};

/// An entity, a type or a qualifier taken apart.
struct Record {
    std::vector<Key> keys;
    std::vector<long long> numbers;
};

/// How many keys (with the subtype) and integers a kind of record has.
struct Shape {
    std::size_t keys;
    std::size_t numbers;

    bool Has(std::size_t fields) const { return fields == keys + numbers || fields + 1 == keys + numbers; }
};

constexpr Shape s_typeShape{2, 0};      // type, subtype
constexpr Shape s_entityShape{2, 1};    // type, subtype; id
constexpr Shape s_qualifierShape{3, 3}; // key, type, subtype; solver index, row, column

/// "%d %d %d", "%d %s %d", "%s %d %d", "%s %s %d", then the same without the last key.
std::vector<ScanFormat> MakeForms(Shape shape) {
    std::vector<ScanFormat> forms;
    for (std::size_t keys = shape.keys; keys + 1 >= shape.keys; --keys) {
        for (std::size_t names = 0; names < std::size_t{1} << keys; ++names) {
            qzString format;
            for (std::size_t k = keys; k-- > 0;)
                format += (names >> k & 1) != 0 ? "%s " : "%d ";
            for (std::size_t k = 0; k < shape.numbers; ++k)
                format += "%d ";
            format.pop_back();
            forms.emplace_back(format.c_str());
        }
    }
    return forms;
}

bool StoreNumber(ScanFormat::Field const& field, long long& number) {
    return StoreInteger(std::get<ScannedInteger>(field), number) == Scan::Matched;
}

bool StoreKey(ScanFormat::Field const& field, Key& key) {
    if (auto const* const name = std::get_if<qzString>(&field)) {
        key.name = *name;
        return true;
    }
    return StoreNumber(field, key.number);
}

bool StoreRecord(std::vector<ScanFormat::Field> const& fields, Shape shape, Record& record) {
    std::size_t const keys = fields.size() - shape.numbers;
    record.keys.assign(shape.keys, Key());
    record.numbers.assign(shape.numbers, 0);
    for (std::size_t k = 0; k < keys; ++k) {
        if (!StoreKey(fields[k], record.keys[k]))
            return false;
    }
    for (std::size_t k = 0; k < shape.numbers; ++k) {
        if (!StoreNumber(fields[keys + k], record.numbers[k]))
            return false;
    }
    return true;
}

// A format with a field for the subtype also reads a text without one.
bool EndsInNumbers(std::vector<ScanFormat::Field> const& fields, Shape shape) {
    return fields.size() + 1 == shape.keys + shape.numbers &&
           std::all_of(fields.end() - static_cast<std::ptrdiff_t>(shape.numbers), fields.end(),
                       [](auto const& field) { return std::holds_alternative<ScannedInteger>(field); });
}

bool ReadRecordByFormat(qzString const& text, char const* format, Shape shape, Record& record) {
    using enum ScanFormat::Class;
    ScanFormat const scan(format);
    auto const& classes = scan.GetClasses();
    if (!scan.IsValid() || !shape.Has(classes.size()))
        return false;
    auto const numbers = classes.end() - static_cast<std::ptrdiff_t>(shape.numbers);
    bool const fits =
        std::all_of(classes.begin(), numbers, [](auto kind) { return kind == Integer || kind == Text; }) &&
        std::all_of(numbers, classes.end(), [](auto kind) { return kind == Integer; });
    if (!fits)
        return false;
    std::vector<ScanFormat::Field> fields;
    switch (scan.Read(text, fields)) {
    case Scan::Matched:
        return StoreRecord(fields, shape, record);
    case Scan::NoMatch:
        return EndsInNumbers(fields, shape) && StoreRecord(fields, shape, record);
    case Scan::OutOfRange:
        break;
    }
    return false;
}

bool ReadRecord(qzString const& text, std::vector<ScanFormat> const& forms, Shape shape, Record& record) {
    for (ScanFormat const& form : forms) {
        std::vector<ScanFormat::Field> fields;
        Scan const result = form.Read(text, fields);
        // A number out of range is no reason to take what is left for a shorter form.
        if (result != Scan::NoMatch)
            return result == Scan::Matched && StoreRecord(fields, shape, record);
    }
    return false;
}

bool AppendRecord(qzString& out, Record const& record, bool haveSubtype, char const* format) {
    std::vector<FormatArgument> arguments;
    for (Key const& key : record.keys)
        arguments.push_back(key.Argument());
    for (long long const number : record.numbers)
        arguments.emplace_back(
            FormatInteger::Of(static_cast<std::int32_t>(number))); // ids and indices: 32 bits
    if (AppendFormatted(out, format, arguments))
        return true;
    arguments.erase(arguments.begin() + static_cast<std::ptrdiff_t>(record.keys.size()) - 1);
    return !haveSubtype && AppendFormatted(out, format, arguments);
}

void AppendRecord(qzString& out, Record const& record, bool haveSubtype) {
    std::size_t const keys = record.keys.size() - (haveSubtype ? 0 : 1);
    for (std::size_t k = 0; k < keys; ++k) {
        if (k > 0)
            out += ' ';
        record.keys[k].Append(out);
    }
    for (long long const number : record.numbers) {
        out += ' ';
        AppendInteger(out, number);
    }
}

Key TypeKey(EntityFullType const& type) { return {type.GetTypeNumeric(), type.GetTypeNamed()}; }
Key SubtypeKey(EntityFullType const& type) { return {type.GetSubtypeNumeric(), type.GetSubtypeNamed()}; }

/// Narrows a number that was read; false when T cannot hold it.
template <class T>
bool Narrow(long long number, T& value) {
    if (!std::in_range<T>(number))
        return false;
    value = static_cast<T>(number);
    return true;
}

/// Rows and columns are written as signed numbers, the unset 0xFFFFFFFF as -1, and read either way.
bool NarrowIndex(long long number, unsigned int& index) {
    int negative = 0;
    if (number >= 0)
        return Narrow(number, index);
    if (!Narrow(number, negative))
        return false;
    index = static_cast<unsigned int>(negative);
    return true;
}

bool MakeType(Key const& typeKey, Key const& subtypeKey, EntityFullType& type) {
    unsigned int number = 0, subnumber = 0;
    if (!Narrow(typeKey.number, number) || !Narrow(subtypeKey.number, subnumber))
        return false;
    if (typeKey.IsName() && subtypeKey.IsName())
        type = EntityFullType(typeKey.name, subtypeKey.name);
    else if (typeKey.IsName())
        type = EntityFullType(typeKey.name, subnumber);
    else if (subtypeKey.IsName())
        type = EntityFullType(number, subtypeKey.name);
    else
        type = EntityFullType(number, subnumber);
    return true;
}

bool ReadRecordIn(qzString const& text, char const* format, Shape shape, std::vector<ScanFormat> const& forms,
                  Record& record) {
    return format == nullptr ? ReadRecord(text, forms, shape, record)
                             : ReadRecordByFormat(text, format, shape, record);
}

bool AppendRecordIn(qzString& out, char const* format, Record const& record, bool haveSubtype) {
    if (format != nullptr)
        return AppendRecord(out, record, haveSubtype, format);
    AppendRecord(out, record, haveSubtype);
    return true;
}

} // namespace

bool AppendText(qzString& out, EntityFullType const& value, char const* format) {
    Record const record{{TypeKey(value), SubtypeKey(value)}, {}};
    return AppendRecordIn(out, format, record, value.HaveSubType());
}

bool ReadText(qzString const& text, char const* format, EntityFullType& value) {
    static auto const& forms = *new std::vector<ScanFormat>(MakeForms(s_typeShape));
    Record record;
    return ReadRecordIn(text, format, s_typeShape, forms, record) &&
           MakeType(record.keys[0], record.keys[1], value);
}

bool AppendText(qzString& out, Entity const& value, char const* format) {
    EntityFullType const& type = value.GetEntityFullType();
    Record const record{{TypeKey(type), SubtypeKey(type)}, {value.GetId()}};
    return AppendRecordIn(out, format, record, type.HaveSubType());
}

bool ReadText(qzString const& text, char const* format, Entity& value) {
    // Not destroyed: objects in static storage may still read texts at exit.
    static auto const& forms = *new std::vector<ScanFormat>(MakeForms(s_entityShape));
    Record record;
    EntityFullType type;
    unsigned int id = 0;
    if (!ReadRecordIn(text, format, s_entityShape, forms, record) ||
        !MakeType(record.keys[0], record.keys[1], type) || !Narrow(record.numbers[0], id))
        return false;
    value = Entity(type, id);
    return true;
}

bool AppendText(qzString& out, Qualifier const& value, char const* format) {
    EntityFullType const& type = value.GetEntityFullType();
    Record const record{
        {Key{value.GetNumericKey(), value.GetNameKey()}, TypeKey(type), SubtypeKey(type)},
        {value.GetSolverIdx(), static_cast<int>(value.GetRow()), static_cast<int>(value.GetColumn())}};
    return AppendRecordIn(out, format, record, type.HaveSubType());
}

bool ReadText(qzString const& text, char const* format, Qualifier& value) {
    static auto const& forms = *new std::vector<ScanFormat>(MakeForms(s_qualifierShape));
    Record record;
    EntityFullType type;
    int key = 0, solverIdx = 0;
    unsigned int row = 0, column = 0;
    if (!ReadRecordIn(text, format, s_qualifierShape, forms, record) ||
        !MakeType(record.keys[1], record.keys[2], type) || !Narrow(record.keys[0].number, key) ||
        !Narrow(record.numbers[0], solverIdx) || !NarrowIndex(record.numbers[1], row) ||
        !NarrowIndex(record.numbers[2], column))
        return false;
    auto const index = static_cast<unsigned int>(solverIdx);
    value = record.keys[0].IsName() ? Qualifier(record.keys[0].name, type, index, row, column, 0)
                                    : Qualifier(key, type, index, row, column, 0);
    return true;
}

} // namespace qzDescriptor
