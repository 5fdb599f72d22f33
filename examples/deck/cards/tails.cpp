#include "cards/tails.h"

#include "cards/card_position.h"
#include "model/field_value.h"
#include "reader/latin1.h"

#include <algorithm>

namespace qzDeck {

using qzDescriptor::Value;

namespace {

Value const* ValueAt(Values values, std::size_t place) {
    return place < values.size() ? &values[place] : nullptr;
}

bool IsBlank(Values values, std::size_t first, std::size_t count) {
    for (std::size_t place = first; place < std::min(first + count, values.size()); ++place) {
        if (values[place].GetBasicType() != qzDescriptor::BT_NONE)
            return false;
    }
    return true;
}

/// Rows that are blank as a whole mean nothing, but the first.
class RowsTail : public Tail {
public:
    void Place(Fields fields, Values values, std::size_t rows, PlacedFields& placed) const override {
        std::size_t const first = placed.size();
        std::size_t const length = PlaceOf(fields.back().position) - first + 1;
        for (unsigned int row = 0; row < rows || placed.size() < values.size(); ++row) {
            bool const isMeant = row == 0 || !IsBlank(values, placed.size(), length);
            for (std::size_t i = 0; i < length; ++i) {
                Field const* const field =
                    Choose(FieldsAt(fields, first + i), ValueAt(values, placed.size()));
                placed.push_back({field, row, PlacedField::s_single, isMeant && IsRequired(*field)});
            }
        }
    }
    std::vector<Value> BeginRow(Fields fields, unsigned int) const override {
        std::vector<Value> values;
        for (std::size_t place = PlaceOf(fields.front().position); place <= PlaceOf(fields.back().position);
             ++place)
            values.push_back(DefaultOf(FieldsAt(fields, place).front()));
        return values;
    }
    std::string_view Note() const override { return "repeated to the end of the card"; }
};

struct Section {
    std::string_view type;
    std::size_t dimensions;
};
constexpr Section s_sections[] = {
    {"BAR", 2}, {"BOX", 4}, {"BOX1", 6}, {"CHAN", 4}, {"CHAN1", 4}, {"CHAN2", 4}, {"CROSS", 4}, {"DBOX", 10},
    {"H", 4},   {"HAT", 4}, {"HAT1", 5}, {"HEXA", 3}, {"I", 6},     {"I1", 4},    {"L", 4},     {"ROD", 1},
    {"T", 4},   {"T1", 4},  {"T2", 4},   {"TUBE", 2}, {"TUBE2", 2}, {"Z", 4}};

/// 0 when the type is not known.
std::size_t CountDimensions(std::string_view type) {
    auto const found = std::find_if(std::begin(s_sections), std::end(s_sections),
                                    [type](Section const& section) { return section.type == type; });
    return found == std::end(s_sections) ? 0 : found->dimensions;
}

class StationsTail : public Tail {
public:
    void Place(Fields fields, Values values, std::size_t, PlacedFields& placed) const override {
        bool const hasStations = fields.size() > s_station;
        std::size_t const count = P_CountDimensions(values, placed.size());
        unsigned int station = 0;
        P_PlaceStation(fields, count, station, hasStations, placed);
        while (hasStations && placed.size() < values.size()) {
            ++station;
            for (Field const& field : fields.subspan(s_station))
                placed.push_back({&field, station, PlacedField::s_single, false});
            P_PlaceStation(fields, count, station, hasStations, placed);
        }
    }
    /// Between two stations stand fields of the second.
    std::vector<Value> BeginRow(Fields fields, unsigned int row) const override {
        std::vector<Value> values;
        for (std::size_t i = s_station; i < fields.size() && row > 0; ++i)
            values.push_back(DefaultOf(fields[i]));
        return values;
    }
    std::string_view Note() const override {
        return "for each station as many DIM as the TYPE has dimensions, then NSM";
    }

private:
    static constexpr std::size_t s_typePlace = 3;
    static constexpr std::size_t s_station = 2; // the index of the first field between two stations

    /// Without a known type, all that follows are dimensions.
    static std::size_t P_CountDimensions(Values values, std::size_t first) {
        Value const* const type = ValueAt(values, s_typePlace);
        qzString const* const text = type == nullptr ? nullptr : type->GetValuePointerString();
        std::size_t const count = text == nullptr ? 0 : CountDimensions(Upper(*text));
        return count > 0 ? count : std::max(values.size(), first + 1) - first;
    }

    static void P_PlaceStation(Fields fields, std::size_t count, unsigned int station, bool hasStations,
                               PlacedFields& placed) {
        bool const isRequired = station == 0; // the others take over from there
        for (unsigned int i = 0; i < count; ++i) {
            if (hasStations)
                placed.push_back({&fields[0], station, i, isRequired});
            else
                placed.push_back({&fields[0], i, PlacedField::s_single, isRequired});
        }
        placed.push_back(
            {&fields[1], hasStations ? station : PlacedField::s_single, PlacedField::s_single, false});
    }
};

class GroupsTail : public Tail {
public:
    void Place(Fields fields, Values values, std::size_t, PlacedFields& placed) const override {
        Cursor cursor;
        do {
            cursor.MeetValue(ValueAt(values, placed.size()));
            placed.push_back(cursor.Placed(fields));
            cursor.Advance();
        } while (placed.size() < values.size() || !cursor.IsComplete());
    }
    std::vector<Value> BeginRow(Fields, unsigned int) const override { return {}; }
    std::string_view Note() const override {
        return "groups of WT, C, G, G, ...; then after the word UM pairs of GM and CM, after ALPHA a number";
    }

private:
    /// The parts in the order of the fields.
    enum Part : std::size_t { Weight, Components, Point, UmWord, UmPoint, UmComponents, AlphaWord, Alpha };

    class Cursor {
    public:
        /// A word begins its part, and a real number behind points the next group.
        void MeetValue(Value const* value) {
            qzString const* const text = value == nullptr ? nullptr : value->GetValuePointerString();
            if (text != nullptr && Upper(*text) == "UM")
                P_Begin(UmWord, 0);
            else if (text != nullptr && Upper(*text) == "ALPHA")
                P_Begin(AlphaWord, 0);
            else if (m_part == Point && value != nullptr && value->GetBasicType() == qzDescriptor::BT_DOUBLE)
                P_Begin(Weight, m_row + 1);
            bool const isBlank = value == nullptr || value->GetBasicType() == qzDescriptor::BT_NONE;
            if (m_part == UmPoint)
                m_isPair = m_row == 0 || !isBlank;
        }
        PlacedField Placed(Fields fields) const {
            bool const isPairPart = m_part == UmPoint || m_part == UmComponents;
            bool const isMeant = m_part == Point ? m_column == 0 : !isPairPart || m_isPair;
            return {&fields[m_part], m_part < UmWord || isPairPart ? m_row : PlacedField::s_single,
                    m_part == Point ? m_column : PlacedField::s_single,
                    isMeant && IsRequired(fields[m_part])};
        }
        void Advance() {
            m_row += m_part == UmComponents ? 1U : 0U;
            m_column += m_part == Point ? 1U : 0U;
            m_isComplete = m_part == Point || m_part == UmComponents || m_part == Alpha;
            if (m_part == UmComponents)
                m_part = UmPoint;
            else if (!m_isComplete)
                m_part = static_cast<Part>(m_part + 1);
        }
        bool IsComplete() const { return m_isComplete; }

    private:
        void P_Begin(Part part, unsigned int row) {
            m_part = part;
            m_row = row;
            m_column = 0;
        }

        Part m_part = Weight;
        unsigned int m_row = 0;
        unsigned int m_column = 0;
        bool m_isPair = false;
        bool m_isComplete = false;
    };
};

} // namespace

Tail const& RepeatedRows() {
    static RowsTail const s_tail;
    return s_tail;
}

Tail const& SectionStations() {
    static StationsTail const s_tail;
    return s_tail;
}

Tail const& WeightedGroups() {
    static GroupsTail const s_tail;
    return s_tail;
}

std::vector<std::string_view> SectionTypes() {
    std::vector<std::string_view> types;
    for (Section const& section : s_sections)
        types.push_back(section.type);
    return types;
}

} // namespace qzDeck
