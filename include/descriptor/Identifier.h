#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"

#include <atomic>
#include <cstddef>

namespace qzDescriptor {

/// The key of a metaclass member: a number or a name, with an optional solver index, row and column.
///
///     Identifier thickness("T");                  // any row, any column
///     Identifier cell("T", 0, 3, 1);              // row 3, column 1
///     bool same = thickness == cell;              // true: what is unset matches anything
class QZDESCRIPTOR_API Identifier {
public:
    static constexpr unsigned int s_unset = 0xFFFFFFFF; ///< a row or column that matches every other

    /// No key, and row and column 0: unlike an identifier made from a key, a default one does not match
    /// identifiers with other rows or columns.
    Identifier() = default;
    explicit Identifier(int numericKey, unsigned int solverIdx = 0, unsigned int row = s_unset,
                        unsigned int column = s_unset);
    explicit Identifier(qzString const& nameKey, unsigned int solverIdx = 0, unsigned int row = s_unset,
                        unsigned int column = s_unset);
    Identifier& operator=(int numericKey);
    Identifier& operator=(qzString const& nameKey);

    int GetNumericKey() const { return m_numericKey; }
    void SetNumericKey(int numericKey) { m_numericKey = numericKey; }
    qzString const& GetNameKey() const { return m_nameKey; }
    void SetNameKey(qzString const& nameKey) { m_nameKey = nameKey; }
    int GetSolverIdx() const { return m_solverIdx; }
    void SetSolverIdx(int solverIdx) { m_solverIdx = solverIdx; }
    unsigned int GetRow() const { return m_row; }
    void SetRow(unsigned int row) { m_row = row; }
    unsigned int GetColumn() const { return m_column; }
    void SetColumn(unsigned int column) { m_column = column; }

    bool UsesNumericKey() const { return m_numericKey != 0; }
    bool UsesNameKey() const { return !m_nameKey.empty(); }
    bool IsValid() const { return UsesNumericKey() || UsesNameKey(); }

    /// Keys must be equal; a solver index of 0 and a row or column of s_unset match anything. The relation is
    /// not transitive.
    friend bool operator==(Identifier const& a, Identifier const& b) {
        return a.m_numericKey == b.m_numericKey && P_Match(0, a.m_solverIdx, b.m_solverIdx) &&
               P_Match(s_unset, a.m_row, b.m_row) && P_Match(s_unset, a.m_column, b.m_column) &&
               a.m_nameKey == b.m_nameKey;
    }

    /// By number when both have one, else by name when both have one, then by what both have set of solver
    /// index, row and column. Two identifiers without a common kind of key are unordered. Every comparison
    /// raises the flag of FullLessThanSentinel.
    QZDESCRIPTOR_API friend bool operator<(Identifier const& a, Identifier const& b);

    /// The number modulo 101 (a negative key gives a negative remainder), else a hash of the name. Equal
    /// identifiers have equal hashes.
    struct QZDESCRIPTOR_API hash {
        std::size_t operator()(Identifier const& identifier) const;
    };

    /// Says, process-wide, that a full ordering of identifiers is or has been in use: raised by the guard's
    /// construction and by every `<`, lowered only by the end of a guard.
    class QZDESCRIPTOR_API FullLessThanSentinel {
    public:
        FullLessThanSentinel();
        ~FullLessThanSentinel();
        FullLessThanSentinel(FullLessThanSentinel const&) = delete;
        FullLessThanSentinel& operator=(FullLessThanSentinel const&) = delete;

        /// Raises the flag and returns true.
        static bool GetActive();

        static std::atomic<bool> s_active;
    };

private:
    // What is unset matches anything.
    template <class Part>
    static constexpr bool P_Match(Part unset, Part a, Part b) {
        return a == unset || b == unset || a == b;
    }

    int m_numericKey = 0;
    qzString m_nameKey;
    int m_solverIdx = 0;
    unsigned int m_row = 0;
    unsigned int m_column = 0;
};

/// The numeric and the named key of one thing.
class QZDESCRIPTOR_API IdentifierPair {
public:
    IdentifierPair() : IdentifierPair(0, qzString()) {}
    IdentifierPair(int numericKey, qzString const& nameKey) : m_numeric(numericKey), m_named(nameKey) {}

    Identifier const& GetNumeric() const { return m_numeric; }
    Identifier const& GetNamed() const { return m_named; }
    bool IsValid() const { return m_numeric.IsValid() && m_named.IsValid(); }

    friend bool operator==(IdentifierPair const&, IdentifierPair const&) = default;

private:
    Identifier m_numeric;
    Identifier m_named;
};

} // namespace qzDescriptor
