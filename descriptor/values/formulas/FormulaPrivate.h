#pragma once

#include "descriptor/Clause.h"
#include "descriptor/EntityFullType.h"
#include "descriptor/Formula.h"

#include <optional>
#include <vector>

namespace qzDescriptor {

class FormulaPrivate {
public:
    struct Entry {
        Clause clause;
        std::optional<EntityFullType> source; ///< none for the formula's own type, as most clauses have it
        bool addition;
    };

    explicit FormulaPrivate(EntityFullType const& formulaType) : type(formulaType) {}

    static std::unique_ptr<FormulaPrivate>& Of(Formula& formula) { return formula.m_private; }
    static FormulaPrivate const* Of(Formula const& formula) { return formula.m_private.get(); }

    Entry MakeEntry(Clause const& clause, EntityFullType const& source, bool addition) const;
    EntityFullType const& GetSource(Entry const& entry) const { return entry.source ? *entry.source : type; }

    friend bool operator==(FormulaPrivate const& a, FormulaPrivate const& b);

    EntityFullType type;
    std::vector<Entry> entries;
};

} // namespace qzDescriptor
