#pragma once

#include "qzutl/qzString.h"

#include <cstdint>
#include <utility>

/// What the cells of a column hold. The codes stand in files.
enum QZDT_Type : std::int32_t {
    QZDT_NONE = 0, ///< no column, or an empty variant
    QZDT_BOOL = 1,
    QZDT_INT = 2,
    QZDT_UINT = 3,
    QZDT_DOUBLE = 4,
    QZDT_STRING = 5,
    QZDT_TRIPLE_I = 6, ///< three integers
    QZDT_TRIPLE = 7,   ///< three doubles
    QZDT_ID = 8        ///< an entity of the column's entity type
};

/// A cell of an entity column: the id, and the topology index for types that have a topology.
struct QZDT_Id {
    unsigned int id = 0;
    char topologyIndex = 0;

    friend bool operator==(QZDT_Id const&, QZDT_Id const&) = default;
};

/// The type of the entities in a column. The store keeps it for its users and does not look into it.
struct QZDT_EntityType {
    unsigned int type = 0;
    unsigned int subtype = 0;
    qzString typeName;
    qzString subtypeName;
    std::int32_t topology = 0;

    friend bool operator==(QZDT_EntityType const&, QZDT_EntityType const&) = default;
};

/// What a column is known by to the users of the store, which keeps it and does not look into it.
struct QZDT_ColumnIdentifier {
    std::int32_t number = 0;
    qzString name;
    std::int32_t solverIndex = 0;
    unsigned int row = 0;
    unsigned int column = 0;

    friend bool operator==(QZDT_ColumnIdentifier const&, QZDT_ColumnIdentifier const&) = default;
};

/// How an operation ended: true, or false with a sentence that says why.
class [[nodiscard]] QZDT_Result {
public:
    QZDT_Result() = default;
    static QZDT_Result Failure(qzString message) { return QZDT_Result(std::move(message)); }

    explicit operator bool() const noexcept { return m_succeeded; }
    qzString const& GetMessage() const noexcept { return m_message; }

private:
    explicit QZDT_Result(qzString message) : m_succeeded(false), m_message(std::move(message)) {}

    bool m_succeeded = true;
    qzString m_message;
};
