// A session of 1,000,000 objects: created under the ownership rules and given two values each, listed, looked
// up, destroyed; and what it occupies.

#include "descriptor/qzdescriptor.h"
#include "store/Registry.h"
#include "store/Session.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

using namespace qzDescriptor;

constexpr unsigned int s_count = 1'000'000;

/// Plies of laminates, ten each; 8 attributes, of which two are set.
class Plies {
public:
    explicit Plies(bool withValues) {
        unsigned int const laminate = Declare("Laminate"), ply = Declare("Ply");
        Definition number;
        number.SetValueBasicType(BT_DOUBLE);
        for (int i = 0; i < 8; ++i)
            m_registry.InsertAttribute(ply, Identifier("T" + std::to_string(i)), number, Identifier(), {});
        Identifier const plies("plies");
        m_registry.SetOwnership(ply, laminate,
                                m_registry.InsertAttribute(laminate, plies, Definition(), Identifier(), {}));
        m_session = m_registry.GetSession("plies");
        Identifier const t("T0"), u("T5");
        Entity owner, created;
        for (unsigned int i = 0; i < s_count; ++i) {
            if (i % 10 == 0)
                m_session->Create(EntityFullType("Laminate"), owner, Entity(), Identifier());
            m_session->Create(m_type, created, owner, plies);
            if (!withValues)
                continue;
            Metaobject const* const object = m_session->Get(created);
            object->SetValue(t, Value(0.5 * i));
            object->SetValue(u, Value(0.25 * i));
        }
    }

    void End() { m_registry.RemoveSession(m_session); }
    unsigned long long List() const {
        EntityList list;
        return m_session->Collect(list, m_type, "");
    }
    unsigned long long LookUp() const {
        Entity entity(m_type);
        ValuePtr const* value = nullptr;
        unsigned long long found = 0;
        for (unsigned int id = 1; id <= s_count; ++id) {
            entity.GetIdRef() = id * 7919u % s_count + 1;
            found += m_session->Get(entity)->GetValue(1u, value) ? 1 : 0;
        }
        return found;
    }

private:
    unsigned int Declare(qzString const& name) {
        return m_registry.Insert(name, Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
    }

    store::Registry m_registry;
    ISession* m_session = nullptr;
    EntityFullType m_type{qzString("Ply")};
};

/// Of this process, in bytes.
double GetResidentMemory() {
    std::ifstream status("/proc/self/statm");
    double total = 0, resident = 0;
    status >> total >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

void CreateAndSet(benchmark::State& state) {
    for ([[maybe_unused]] auto const _ : state) {
        double const before = GetResidentMemory();
        Plies plies(state.range(0) != 0);
        state.counters["bytes/object"] = (GetResidentMemory() - before) / s_count;
        state.PauseTiming();
        plies.End();
        state.ResumeTiming();
    }
}
BENCHMARK(CreateAndSet)->Name("session of 1M/create")->Arg(0)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(CreateAndSet)
    ->Name("session of 1M/create and set two")
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

void List(benchmark::State& state) {
    Plies const plies(false);
    for ([[maybe_unused]] auto const _ : state)
        benchmark::DoNotOptimize(plies.List());
}
BENCHMARK(List)->Name("session of 1M/list")->Unit(benchmark::kMillisecond);

void LookUp(benchmark::State& state) {
    Plies const plies(true);
    for ([[maybe_unused]] auto const _ : state)
        benchmark::DoNotOptimize(plies.LookUp());
}
BENCHMARK(LookUp)->Name("session of 1M/read each in random order")->Unit(benchmark::kMillisecond);

void End(benchmark::State& state) {
    for ([[maybe_unused]] auto const _ : state) {
        state.PauseTiming();
        Plies plies(true);
        state.ResumeTiming();
        plies.End();
    }
}
BENCHMARK(End)->Name("session of 1M/destroy")->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
