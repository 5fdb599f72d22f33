#pragma once

#include "descriptor/Allowables.h"
#include "descriptor/DataTypes.h"
#include "descriptor/DefinitionUserParams.h"
#include "descriptor/Export.h"
#include "descriptor/Forward.h"
#include "descriptor/UnitsDimensionality.h"
#include "qzutl/qzFixedSizeAllocatorND.h"

#include <cstddef>
#include <cstdint>

namespace qzDescriptor {

/// What one attribute of a metaclass is: its texts, the type and array dimension of its value, what the value
/// may be, its units, and how user interfaces treat it.
///
///     Definition thickness;
///     thickness.SetDisplayName("Thickness");
///     thickness.SetValueBasicType(BT_DOUBLE);
///     thickness.SetAllowables(Allowables(BoundT<double>(0.0, BoundT<double>::Greater), 1.0));
///     thickness.SetUnitsDimensionality(UnitsDimensionality("LENGTH", "Length"));
///     Value value(&thickness, DS_DEFAULT, QZDT_DBHandle());      // 1
///
/// A plain value, not synchronised; objects made with `new` come from a pool and may be made and deleted on
/// any thread.
class QZDESCRIPTOR_API Definition {
public:
    /// Where the value comes from. Codes other than these are carried unchanged.
    enum ValueSource : std::int32_t {
        SOURCE_STORED = 0,     ///< kept in the object
        SOURCE_COMPUTED = 1,   ///< worked out from other attributes
        SOURCE_REFERENCED = 2, ///< read from another object
        SOURCE_EXTERNAL = 3    ///< kept outside the model
    };

    /// Whether the value has to be given. Codes other than these are carried unchanged.
    enum ValueSpecification : std::int32_t {
        SPECIFICATION_OPTIONAL = 0,
        SPECIFICATION_REQUIRED = 1,
        SPECIFICATION_CONDITIONAL = 2 ///< required or not by what other attributes hold
    };

    /// What values of one type have to be told apart for. Codes other than these are carried unchanged.
    enum ValueDifferentiator : std::int32_t {
        DIFFERENTIATOR_NONE = 0,
        DIFFERENTIATOR_FILE = 1,      ///< a text that is the path of a file
        DIFFERENTIATOR_FOLDER = 2,    ///< a text that is the path of a folder
        DIFFERENTIATOR_DIRECTION = 3, ///< a triple that is no position
        DIFFERENTIATOR_ANGLE = 4,     ///< a number that is an angle
        DIFFERENTIATOR_TIME = 5       ///< a number that is a point in time
    };

    Definition() = default;
    /// Makes a specified definition.
    Definition(qzString const& displayName, BasicType valueBasicType, CompoundType valueCompoundType,
               unsigned int arrayDimension, Allowables const& allowables, ValueSource valueSource,
               ValueSpecification valueSpecification, bool editable, bool visible,
               qzString const& description, qzString const& helpPath,
               UnitsDimensionality const& unitsDimensionality, ValueDifferentiator valueDifferentiator,
               DefinitionUserParams const& userParams);

    /// Whether it was made with all of its fields; one made by default stays unspecified.
    bool IsSpecified() const { return m_specified; }

    qzString GetDisplayName() const { return m_displayName; }
    void SetDisplayName(qzString const& displayName) { m_displayName = displayName; }
    BasicType GetValueBasicType() const { return m_valueBasicType; }
    void SetValueBasicType(BasicType basic) { m_valueBasicType = basic; }
    CompoundType GetValueCompoundType() const { return m_valueCompoundType; }
    void SetValueCompoundType(CompoundType compound) { m_valueCompoundType = compound; }
    unsigned int GetArrayDimension() const { return m_arrayDimension; }
    void SetArrayDimension(unsigned int arrayDimension) { m_arrayDimension = arrayDimension; }
    Allowables const& GetAllowables() const { return m_allowables; }
    void SetAllowables(Allowables const& allowables) { m_allowables = allowables; }
    ValueSource GetValueSource() const { return m_valueSource; }
    void SetValueSource(ValueSource valueSource) { m_valueSource = valueSource; }
    ValueSpecification GetValueSpecification() const { return m_valueSpecification; }
    void SetValueSpecification(ValueSpecification specification) { m_valueSpecification = specification; }
    bool GetEditable() const { return m_editable; }
    void SetEditable(bool editable) { m_editable = editable; }
    bool GetVisible() const { return m_visible; }
    void SetVisible(bool visible) { m_visible = visible; }
    qzString GetDescription() const { return m_description; }
    void SetDescription(qzString const& description) { m_description = description; }
    qzString GetHelpPath() const { return m_helpPath; }
    void SetHelpPath(qzString const& helpPath) { m_helpPath = helpPath; }
    UnitsDimensionality const& GetUnitsDimensionality() const { return m_unitsDimensionality; }
    void SetUnitsDimensionality(UnitsDimensionality const& units) { m_unitsDimensionality = units; }
    ValueDifferentiator GetValueDifferentiator() const { return m_valueDifferentiator; }
    void SetValueDifferentiator(ValueDifferentiator differentiator) {
        m_valueDifferentiator = differentiator;
    }
    DefinitionUserParams const& GetUserParams() const { return m_userParams; }
    void SetUserParams(DefinitionUserParams const& userParams) { m_userParams = userParams; }

    friend bool operator==(Definition const&, Definition const&) = default;

    // From the pool; an object of a derived class of another size comes from the heap.
    static void* operator new(std::size_t size);
    static void operator delete(void* memory, std::size_t size) noexcept;
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void*, void*) noexcept {}

private:
    static qzStaticPool<qzFixedSizeAllocatorND<Definition, qzSimpleMutex,
                                               qzMallocAllocator<char, qzDefaultAllocatorFunctions>>>
        p_allocatorDefinition;

    bool m_specified = false;
    qzString m_displayName;
    BasicType m_valueBasicType = BT_BOOL;
    CompoundType m_valueCompoundType = CT_SCALAR;
    unsigned int m_arrayDimension = 0;
    Allowables m_allowables;
    ValueSource m_valueSource = SOURCE_STORED;
    ValueSpecification m_valueSpecification = SPECIFICATION_OPTIONAL;
    bool m_editable = false;
    bool m_visible = false;
    qzString m_description;
    qzString m_helpPath;
    UnitsDimensionality m_unitsDimensionality;
    ValueDifferentiator m_valueDifferentiator = DIFFERENTIATOR_NONE;
    DefinitionUserParams m_userParams;
};

} // namespace qzDescriptor
