#include "deck/DeckFolder.h"

#include "qzdistribution/QZ_DT_Mgr.h"

#include <array>
#include <charconv>
#include <cstdlib>
#include <fstream>

namespace fs = std::filesystem;
using qzDescriptor::Value;

std::string DeckFolder::Write(std::string const& name, std::string_view text) const {
    fs::path const path = Path() / name;
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary).write(text.data(), static_cast<std::streamsize>(text.size()));
    return path.string();
}

qzDeck::Model DeckFolder::Read(std::string_view text) const {
    return qzDeck::Model::Read(Write("deck.bdf", text)).value();
}

std::string OwnDeck(std::string const& name) { return std::string(QZ_OWN_DECKS) + "/" + name; }

std::vector<std::string> AllDecks() {
    std::vector<std::string> decks = SharedDecks();
    for (char const* name :
         {"footbridge.bdf", "footbridge_loads.bdf", "sampler.bdf", "faults.bdf", "broken.bdf"})
        decks.push_back(OwnDeck(name));
    return decks;
}

std::vector<std::string> SharedDecks() {
    char const* const named = std::getenv("QZ_DECKS");
    fs::path const folder = named != nullptr ? named : QZ_SHARED_DECKS;
    std::vector<std::string> decks;
    for (char const* name : {"BAR-I12.DAT", "CRM_box_2nd.bdf", "fixed_motor.bdf", "kobayashi_wing.dat",
                             "loaded_plate/loaded_plate.dat", "missing_continuation.bdf", "t01301a.inp",
                             "truss_rand_coords.dat"}) {
        if (fs::exists(folder / name))
            decks.push_back((folder / name).string());
    }
    return decks;
}

namespace {

std::string TextOf(Value const& value) {
    if (value.GetBasicType() == qzDescriptor::BT_NONE)
        return "_";
    qzString mark;
    value.GetAssociatedString(mark);
    if (int integer = 0; value.GetValue(integer))
        return mark + std::to_string(integer);
    if (double real = 0.0; value.GetValue(real)) {
        std::array<char, 32> digits{};
        std::string text(digits.data(),
                         std::to_chars(digits.data(), digits.data() + digits.size(), real).ptr);
        return mark + (text.find_first_of(".e") == std::string::npos ? text + ".0" : text);
    }
    qzString text;
    return value.GetValue(text) ? mark.append(1, '\'').append(text).append(1, '\'') : "?";
}

} // namespace

std::string TextOf(qzDeck::Card const& card) {
    std::string text = card.Name();
    for (Value const& value : card.Values())
        text += " " + TextOf(value);
    return text;
}

std::string TextOf(qzDeck::Model const& model) {
    std::string text;
    for (qzDeck::Card const& card : model.Cards())
        text += TextOf(card) + "\n";
    return text;
}

std::string ReportsOf(qzDeck::Model const& model) {
    std::string text;
    for (qzDeck::Report const& report : model.GetReports()) {
        std::string const whole = Describe(report, model.GetSource());
        std::size_t const path = model.GetSource().Files()[report.file].path.size();
        text += whole.substr(path + 1) + "\n";
    }
    return text;
}

bool HasTableStore() {
    QZDT_DBHandle database;
    QZ_DT_Mgr& manager = QZ_DT_Mgr::GetInstance();
    return manager.OpenDatabase(":memory:", database) && manager.CloseDatabase(database);
}
