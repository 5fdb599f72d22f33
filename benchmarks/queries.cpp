// One query over 1,000,000 objects, beside SQLite in memory with the same data: over plain structures, and
// over the objects of a session. What is measured is the filter alone: objects are there, the text is parsed
// and the statement prepared; only the session parses its text each time, and lists what it finds. Each is
// measured several times in turns, and the least times are compared.

#include "descriptor/qzdescriptor.h"
#include "selexpr/IDataFilter.h"
#include "selexpr/IDataInterface.h"
#include "selexpr/IRequest.h"
#include "store/Registry.h"
#include "store/Session.h"
#include "support/turns.h"

#include <benchmark/benchmark.h>

#ifdef QZ_HAVE_SQLITE
#    include <sqlite3.h>
#endif

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace ui::selexpr;

constexpr unsigned int s_partCount = 1'000'000;

void Check(bool succeeded, char const* what) {
    if (!succeeded) {
        std::fprintf(stderr, "%s failed\n", what);
        std::exit(1);
    }
}

struct Part {
    long long id;
    double thickness;
    std::string name;
};

/// Half of the parts are thick enough, a quarter begins with "wing".
std::vector<Part> const& GetParts() {
    static std::vector<Part> const s_parts = [] {
        char const* const places[] = {"wing", "tail", "fuselage", "gear"};
        std::mt19937 random(1);
        std::vector<Part> parts;
        for (unsigned int k = 0; k < s_partCount; ++k)
            parts.push_back({k + 1, static_cast<double>(random() % 5000) / 1000.0,
                             std::string(places[random() % 4]) + " part " + std::to_string(k)});
        return parts;
    }();
    return s_parts;
}

/// The same condition in both languages.
struct Case {
    char const* name;
    char const* query;
    char const* sql;
};

constexpr Case s_cases[] = {
    {"thickness and name", "thickness > 2.5 and name = \"wing*\"",
     "SELECT count(*) FROM part WHERE thickness > 2.5 AND name GLOB 'wing*'"},
    {"id ranges", "id in 1:100000:2, 250, 700000:800000",
     "SELECT count(*) FROM part WHERE (id BETWEEN 1 AND 100000 AND id % 2 = 1) OR id = 250 OR "
     "id BETWEEN 700000 AND 800000"},
    {"text within", "name = \"*t 77*\"", "SELECT count(*) FROM part WHERE name GLOB '*t 77*'"},
};

struct Id : IProperty {
    bool Read(void* object, Scalar& value, qzString&) const override {
        value.SetInteger(static_cast<Part const*>(object)->id);
        return true;
    }
};
struct Thickness : IProperty {
    bool Read(void* object, Scalar& value, qzString&) const override {
        value.SetDouble(static_cast<Part const*>(object)->thickness);
        return true;
    }
};
struct Name : IProperty {
    bool Read(void* object, Scalar& value, qzString&) const override {
        value.SetText(static_cast<Part const*>(object)->name);
        return true;
    }
};

class PartData : public IDataInterface {
public:
    bool GetValue(void*, qzString const&, qzVariant&) override { return false; }

    std::unique_ptr<IProperty> Bind(qzString const& property) override {
        if (property == "id")
            return std::make_unique<Id>();
        if (property == "thickness")
            return std::make_unique<Thickness>();
        return property == "name" ? std::make_unique<Name>() : nullptr;
    }
};

class Ours {
public:
    explicit Ours(Case const& each) : m_request(m_filter.Parse(each.query)) {
        Check(m_request != nullptr, each.query);
    }

    long long Count() {
        long long count = 0;
        for (Part const& part : GetParts())
            count += m_request->Matches(const_cast<Part*>(&part)) ? 1 : 0;
        return count;
    }

private:
    PartData m_data;
    IDataFilter m_filter{&m_data};
    std::unique_ptr<IRequest> m_request;
};

/// The parts as objects of a session.
class PartSession {
public:
    static PartSession const& Get() {
        static PartSession const s_session;
        return s_session;
    }

    long long Count(char const* query) const {
        qzDescriptor::EntityList found;
        return static_cast<long long>(m_session->Collect(found, m_type, query));
    }

private:
    PartSession() {
        using namespace qzDescriptor;
        unsigned int const part =
            m_registry.Insert("Part", Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
        Definition thickness, name;
        thickness.SetValueBasicType(BT_DOUBLE);
        name.SetValueBasicType(BT_STRING);
        Identifier const t("thickness"), n("name");
        m_registry.InsertAttribute(part, t, thickness, Identifier(), {});
        m_registry.InsertAttribute(part, n, name, Identifier(), {});
        m_session = m_registry.GetSession("parts");
        for (Part const& each : GetParts()) {
            Entity created;
            Check(m_session->Create(m_type, created, Entity(), Identifier()).status == 0, "create");
            Metaobject const* const object = m_session->Get(created);
            Check(object->SetValue(t, Value(each.thickness)).status == 0 &&
                      object->SetValue(n, Value(each.name)).status == 0,
                  "set");
        }
    }

    qzDescriptor::store::Registry m_registry;
    qzDescriptor::ISession* m_session = nullptr;
    qzDescriptor::EntityFullType m_type{qzString("Part")};
};

class OurSession {
public:
    explicit OurSession(Case const& each) : m_query(each.query) {}
    long long Count() { return m_session.Count(m_query); }

private:
    PartSession const& m_session = PartSession::Get();
    char const* m_query;
};

#ifdef QZ_HAVE_SQLITE
/// The parts as a table.
class PartTable {
public:
    static PartTable const& Get() {
        static PartTable const s_table;
        return s_table;
    }

    sqlite3_stmt* Prepare(char const* sql) const {
        sqlite3_stmt* statement = nullptr;
        Check(sqlite3_prepare_v2(m_database, sql, -1, &statement, nullptr) == SQLITE_OK, sql);
        return statement;
    }

private:
    PartTable() {
        Check(sqlite3_open(":memory:", &m_database) == SQLITE_OK, "open");
        P_Execute("CREATE TABLE part(id INTEGER, thickness REAL, name TEXT); BEGIN");
        sqlite3_stmt* const insert = Prepare("INSERT INTO part VALUES(?, ?, ?)");
        for (Part const& part : GetParts()) {
            sqlite3_bind_int64(insert, 1, part.id);
            sqlite3_bind_double(insert, 2, part.thickness);
            sqlite3_bind_text(insert, 3, part.name.data(), static_cast<int>(part.name.size()), SQLITE_STATIC);
            Check(sqlite3_step(insert) == SQLITE_DONE && sqlite3_reset(insert) == SQLITE_OK, "insert");
        }
        sqlite3_finalize(insert);
        P_Execute("COMMIT");
    }
    ~PartTable() { sqlite3_close(m_database); }

    void P_Execute(char const* sql) {
        Check(sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr) == SQLITE_OK, sql);
    }

    sqlite3* m_database = nullptr;
};

class Sqlite {
public:
    explicit Sqlite(Case const& each) : m_count(PartTable::Get().Prepare(each.sql)) {}
    ~Sqlite() { sqlite3_finalize(m_count); }
    Sqlite(Sqlite const&) = delete;
    Sqlite& operator=(Sqlite const&) = delete;

    long long Count() {
        Check(sqlite3_step(m_count) == SQLITE_ROW, "count");
        long long const count = sqlite3_column_int64(m_count, 0);
        sqlite3_reset(m_count);
        return count;
    }

private:
    sqlite3_stmt* m_count;
};
#endif

template <class Peer>
void Filter(benchmark::State& state, Case const& each, long long expected) {
    Peer peer(each);
    for ([[maybe_unused]] auto const _ : state) {
        if (peer.Count() != expected)
            state.SkipWithError("another number of parts than expected");
    }
    state.SetItemsProcessed(state.iterations() * s_partCount);
}

template <class Peer>
void Register(char const* what, char const* who, Case const& each, long long expected) {
    MeasureInTurns(benchmark::RegisterBenchmark(
                       ("filter 1M " + std::string(what) + " by " + each.name + "/" + who).c_str(),
                       [&each, expected](benchmark::State& state) { Filter<Peer>(state, each, expected); }))
        ->Unit(benchmark::kMillisecond);
}

bool const s_registered = [] {
    for (Case const& each : s_cases) {
        long long const expected = Ours(each).Count();
        Register<Ours>("structures", "ours", each, expected);
        Register<OurSession>("objects", "ours", each, expected);
#ifdef QZ_HAVE_SQLITE
        for (char const* const what : {"structures", "objects"})
            Register<Sqlite>(what, "SQLite", each, expected);
#endif
    }
    return true;
}();

} // namespace
