#include "values/collections/IdMerge.h"

#include "descriptor/EntityList.h"
#include "values/collections/Growth.h"
#include "values/collections/IdSet.h"

#include <memory>
#include <vector>

namespace qzDescriptor {

namespace {

/// Which places of a list were chosen, and how many.
struct Choice {
    explicit Choice(std::size_t places) : isChosen(std::make_unique_for_overwrite<bool[]>(places)) {}

    void Set(std::size_t place, bool chosen) {
        isChosen[place] = chosen;
        count += chosen;
    }

    std::unique_ptr<bool[]> isChosen;
    std::size_t count = 0;
};

IdSpan GetIds(EntityList const& list) { return {list.GetList().data(), list.GetList().size()}; }

/// Those of many ids that are among the few.
std::vector<unsigned int> FindCommon(IdSpan many, IdSpan few) {
    std::vector<unsigned int> common;
    WithIdSet({few}, [&](auto set) {
        VisitWithSet(set, few, [&](std::size_t i) { set.Insert(few[i]); });
        VisitWithSet(set, many, [&](std::size_t i) {
            if (set.Contains(many[i]))
                common.push_back(many[i]);
        });
    });
    return common;
}

/// The known ids as far as they matter to a choice among the ids. When few ids meet a long list, only what
/// both hold does, and no set of the long list is built.
class RelevantIds {
public:
    RelevantIds(IdSpan known, IdSpan ids) : m_known(known) {
        if (known.size() / s_long <= ids.size())
            return;
        m_common = FindCommon(known, ids);
        m_known = m_common;
    }

    RelevantIds(RelevantIds const&) = delete;
    RelevantIds& operator=(RelevantIds const&) = delete;

    IdSpan Get() const { return m_known; }

private:
    static constexpr std::size_t s_long = 8;

    std::vector<unsigned int> m_common;
    IdSpan m_known;
};

/// The first occurrences of the ids that are not known.
Choice ChooseMissing(IdSpan ids, IdSpan known) {
    Choice choice(ids.size());
    WithIdSet({known, ids}, [&](auto set) {
        VisitWithSet(set, known, [&](std::size_t i) { set.Insert(known[i]); });
        VisitWithSet(set, ids, [&](std::size_t i) { choice.Set(i, set.Insert(ids[i])); });
    });
    return choice;
}

/// Every occurrence of the ids that are not known.
Choice ChooseOthers(IdSpan ids, IdSpan known) {
    Choice choice(ids.size());
    WithIdSet({known}, [&](auto set) {
        VisitWithSet(set, known, [&](std::size_t i) { set.Insert(known[i]); });
        VisitWithSet(set, ids, [&](std::size_t i) { choice.Set(i, !set.Contains(ids[i])); });
    });
    return choice;
}

// Both copy every place and move on only past the chosen ones: no branch depends on the data.

template <class T>
void AppendChosen(qzStlVector<T>& target, qzStlVector<T> const& source, Choice const& choice) {
    std::size_t size = target.size();
    target.resize(size + choice.count);
    for (std::size_t i = 0; size < target.size(); ++i) {
        target[size] = source[i];
        size += choice.isChosen[i];
    }
}

template <class T>
void KeepChosen(qzStlVector<T>& list, Choice const& choice) {
    std::size_t size = 0;
    for (std::size_t i = 0; i < list.size(); ++i) {
        list[size] = list[i];
        size += choice.isChosen[i];
    }
    list.resize(size);
}

bool HasTopology(EntityList const& list) {
    return list.GetEntityFullType().GetTopologyType() != EntityFullType::TOPOLOGY_NONE;
}

} // namespace

void AppendMissingIds(EntityList& list, EntityList const& other) {
    if (other.IsEmpty())
        return;
    Choice const missing = ChooseMissing(GetIds(other), RelevantIds(GetIds(list), GetIds(other)).Get());
    MakeRoom(list.GetList(), list.GetList().size() + missing.count);
    if (HasTopology(list)) {
        qzStlVector<char> indices = other.GetTopologyIndexList();
        indices.resize(other.GetList().size());
        list.GetTopologyIndexList().resize(list.GetList().size());
        AppendChosen(list.GetTopologyIndexList(), indices, missing);
    }
    AppendChosen(list.GetList(), other.GetList(), missing);
}

void RemoveIds(EntityList& list, EntityList const& other) {
    if (other.IsEmpty())
        return;
    Choice const remaining = ChooseOthers(GetIds(list), RelevantIds(GetIds(other), GetIds(list)).Get());
    if (HasTopology(list)) {
        list.GetTopologyIndexList().resize(list.GetList().size());
        KeepChosen(list.GetTopologyIndexList(), remaining);
    }
    KeepChosen(list.GetList(), remaining);
}

} // namespace qzDescriptor
