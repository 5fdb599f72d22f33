#pragma once

#include "descriptor/DataTypes.h"
#include "descriptor/Export.h"
#include "descriptor/Forward.h"

#include <cstddef>
#include <type_traits>

namespace qzDescriptor {

/// The storage of one value: an abstract holder, with one class behind it for each element type and array
/// dimension. Every typed operation here answers that the value is not of that type; a holder overrides those
/// of its own type, so that a call with another type fails and never converts.
///
/// Holders come from per-class pools: they are made by Create or Clone and end by Destroy, on any thread.
/// Callers use Value, which owns one holder.
class QZDESCRIPTOR_API ValuePtr {
public:
    /// As an index: the whole list instead of one element.
    static constexpr unsigned int s_wholeValue = 0xFFFFFFFF;

    /// A holder of the same class and data; neither externally managed nor marked as an entity type's.
    virtual ValuePtr* Clone() const;

    virtual BasicType GetBasicType() const;
    virtual CompoundType GetCompoundType() const;
    virtual unsigned int GetArrayDimension() const;
    /// In a bag: the number of elements under an entity type.
    virtual unsigned int GetArrayDimensionExtent(EntityFullType const& type) const;
    /// The length along a dimension (0 the outer one, 1 the first row's); 0 for a single element. The rows
    /// and columns of a table.
    virtual unsigned int GetArrayDimensionExtent(unsigned int dimension) const;
    virtual EntityFullType GetEntityFullType() const;
    virtual bool IsBagType() const;

    /// Equal types, extents, display statuses and data; floating data compare exactly.
    virtual bool Equals(ValuePtr const* other) const;
    /// Equal types and extents, and smaller data; never for types without an order.
    virtual bool LessThan(ValuePtr const* other) const;

    // Copies the whole list, bag or table out.
    virtual bool GetValue(Tabular& value) const;
    virtual bool GetValue(EntityListBagList& value) const;
    virtual bool GetValue(EntityListBag& value) const;
    virtual bool GetValue(EntityList2& value) const;
    virtual bool GetValue(qzStlVector<qzStlVector<qzTTriple<double>>>& value) const;
    virtual bool GetValue(qzStlVector<qzStlVector<double>>& value) const;
    virtual bool GetValue(qzStlVector<qzStlVector<float>>& value) const;
    virtual bool GetValue(qzStlVector<qzStlVector<unsigned long>>& value) const;
    virtual bool GetValue(qzStlVector<qzStlVector<long>>& value) const;
    virtual bool GetValue(qzStlVector<qzStlVector<unsigned int>>& value) const;
    virtual bool GetValue(qzStlVector<qzStlVector<int>>& value) const;
    virtual bool GetValue(qzStlVector<void*>& value) const;
    virtual bool GetValue(FormulaBag& value) const;
    virtual bool GetValue(qzStlVector<Formula>& value) const;
    virtual bool GetValue(EntityList& value) const;
    virtual bool GetValue(qzStlVector<Qualifier>& value) const;
    virtual bool GetValue(qzStlVector<qzTTriple<int>>& value) const;
    virtual bool GetValue(qzStlVector<qzTTriple<double>>& value) const;
    virtual bool GetValue(qzStlVector<qzTCouple<double>>& value) const;
    virtual bool GetValue(qzStlVector<qzString>& value) const;
    virtual bool GetValue(qzStlVector<double>& value) const;
    virtual bool GetValue(qzStlVector<float>& value) const;
    virtual bool GetValue(qzStlVector<unsigned long>& value) const;
    virtual bool GetValue(qzStlVector<long>& value) const;
    virtual bool GetValue(qzStlVector<unsigned int>& value) const;
    virtual bool GetValue(qzStlVector<int>& value) const;
    virtual bool GetValue(qzStlVector<char>& value) const;
    virtual bool GetValue(qzStlVector<bool>& value) const;

    // Copies one element out of a bag, addressed by entity type.
    virtual bool GetValue(Formula& value, EntityFullType const& type) const;
    virtual bool GetValue(Entity& value, EntityFullType const& type, unsigned int index) const;

    // Copies one element out; i is the place in a list, or the row of a two-level one and j the column. A
    // single element ignores both.
    virtual bool GetValue(Function& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(void*& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(Formula& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(Entity& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(Qualifier& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(Color& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(qzTMatrix44<double>& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(qzTMatrix33<double>& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(qzTTriple<int>& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(qzTTriple<float>& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(qzTTriple<double>& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(qzTCouple<int>& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(qzTCouple<float>& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(qzTCouple<double>& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(qzString& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(double& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(float& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(unsigned long& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(long& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(unsigned short& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(short& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(unsigned int& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(int& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(unsigned char& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(char& value, unsigned int i, unsigned int j) const;
    virtual bool GetValue(bool& value, unsigned int i, unsigned int j) const;

    /// The text of one element of a bag. A null format means the type's own form; `out` is emptied on
    /// failure.
    virtual bool GetValueAsString(qzString& out, EntityFullType const& type, unsigned int index,
                                  char const* format) const;
    /// The text of element (i, j), or of the whole list with s_wholeValue. A caller's format holds literal
    /// text and one printf conversion for each component of the element; another format is refused. `out` is
    /// emptied on failure.
    virtual bool GetValueAsString(qzString& out, char const* format, unsigned int i, unsigned int j) const;

    /// Bytes that the data occupies, the holder itself not counted.
    virtual std::size_t GetValueMemoryUsage() const;

    // Addresses of elements, valid until the value changes; null when the type is another or there is none.
    virtual bool const* GetValuePointerBool(unsigned int i, unsigned int j) const;
    virtual char const* GetValuePointerChar(unsigned int i, unsigned int j) const;
    virtual unsigned char const* GetValuePointerUChar(unsigned int i, unsigned int j) const;
    virtual int const* GetValuePointerInt(unsigned int i, unsigned int j) const;
    virtual unsigned int const* GetValuePointerUInt(unsigned int i, unsigned int j) const;
    virtual short const* GetValuePointerShort(unsigned int i, unsigned int j) const;
    virtual unsigned short const* GetValuePointerUShort(unsigned int i, unsigned int j) const;
    virtual long const* GetValuePointerLong(unsigned int i, unsigned int j) const;
    virtual unsigned long const* GetValuePointerULong(unsigned int i, unsigned int j) const;
    virtual float const* GetValuePointerFloat(unsigned int i, unsigned int j) const;
    virtual double const* GetValuePointerDouble(unsigned int i, unsigned int j) const;
    virtual qzString const* GetValuePointerString(unsigned int i, unsigned int j) const;
    virtual qzTCouple<double> const* GetValuePointerCouple(unsigned int i, unsigned int j) const;
    virtual qzTCouple<float> const* GetValuePointerCoupleF(unsigned int i, unsigned int j) const;
    virtual qzTCouple<int> const* GetValuePointerCoupleI(unsigned int i, unsigned int j) const;
    virtual qzTTriple<double> const* GetValuePointerTriple(unsigned int i, unsigned int j) const;
    virtual qzTTriple<float> const* GetValuePointerTripleF(unsigned int i, unsigned int j) const;
    virtual qzTTriple<int> const* GetValuePointerTripleI(unsigned int i, unsigned int j) const;
    virtual qzTMatrix33<double> const* GetValuePointerMatrix33(unsigned int i, unsigned int j) const;
    virtual qzTMatrix44<double> const* GetValuePointerMatrix44(unsigned int i, unsigned int j) const;
    virtual Color const* GetValuePointerColor(unsigned int i, unsigned int j) const;
    virtual Qualifier const* GetValuePointerQualifier(unsigned int i, unsigned int j) const;
    virtual Entity const* GetValuePointerEntity(unsigned int i, unsigned int j) const;
    virtual Entity const* GetValuePointerEntity(EntityFullType const& type, unsigned int index) const;
    virtual Formula const* GetValuePointerFormula(unsigned int i, unsigned int j) const;
    virtual Formula const* GetValuePointerFormula(EntityFullType const& type) const;
    virtual void* const* GetValuePointerVoid(unsigned int i, unsigned int j) const;
    virtual Function const* GetValuePointerFunction(unsigned int i, unsigned int j) const;

    // Addresses of whole lists, bags and tables.
    virtual qzStlVector<bool> const* GetValuePointerBoolList() const;
    virtual qzStlVector<char> const* GetValuePointerCharList() const;
    virtual qzStlVector<int> const* GetValuePointerIntList() const;
    virtual qzStlVector<unsigned int> const* GetValuePointerUIntList() const;
    virtual qzStlVector<long> const* GetValuePointerLongList() const;
    virtual qzStlVector<unsigned long> const* GetValuePointerULongList() const;
    virtual qzStlVector<float> const* GetValuePointerFloatList() const;
    virtual qzStlVector<double> const* GetValuePointerDoubleList() const;
    virtual qzStlVector<qzString> const* GetValuePointerStringList() const;
    virtual qzStlVector<qzTCouple<double>> const* GetValuePointerCoupleList() const;
    virtual qzStlVector<qzTTriple<double>> const* GetValuePointerTripleList() const;
    virtual qzStlVector<qzTTriple<int>> const* GetValuePointerTripleIList() const;
    virtual qzStlVector<Qualifier> const* GetValuePointerQualifierList() const;
    virtual EntityList const* GetValuePointerEntityList() const;
    virtual qzStlVector<Formula> const* GetValuePointerFormulaList() const;
    virtual FormulaBag const* GetValuePointerFormulaBag() const;
    virtual qzStlVector<void*> const* GetValuePointerPointerList() const;
    virtual qzStlVector<qzStlVector<int>> const* GetValuePointerIntList2() const;
    virtual qzStlVector<qzStlVector<unsigned int>> const* GetValuePointerUIntList2() const;
    virtual qzStlVector<qzStlVector<long>> const* GetValuePointerLongList2() const;
    virtual qzStlVector<qzStlVector<unsigned long>> const* GetValuePointerULongList2() const;
    virtual qzStlVector<qzStlVector<float>> const* GetValuePointerFloatList2() const;
    virtual qzStlVector<qzStlVector<double>> const* GetValuePointerDoubleList2() const;
    virtual qzStlVector<qzStlVector<qzTTriple<double>>> const* GetValuePointerTripleList2() const;
    virtual EntityList2 const* GetValuePointerEntityList2() const;
    virtual EntityListBag const* GetValuePointerEntityListBag() const;
    virtual EntityListBagList const* GetValuePointerEntityListBagList() const;
    virtual Tabular const* GetValuePointerTabular() const;

    virtual DisplayStatus GetDisplayStatus() const { return m_displayStatus; }

    // Replaces the whole list, bag or table.
    virtual bool SetValue(Tabular const& value);
    virtual bool SetValue(EntityListBagList const& value);
    virtual bool SetValue(EntityListBag const& value);
    virtual bool SetValue(EntityList2 const& value);
    virtual bool SetValue(qzStlVector<qzStlVector<qzTTriple<double>>> const& value);
    virtual bool SetValue(qzStlVector<qzStlVector<double>> const& value);
    virtual bool SetValue(qzStlVector<qzStlVector<float>> const& value);
    virtual bool SetValue(qzStlVector<qzStlVector<unsigned long>> const& value);
    virtual bool SetValue(qzStlVector<qzStlVector<long>> const& value);
    virtual bool SetValue(qzStlVector<qzStlVector<unsigned int>> const& value);
    virtual bool SetValue(qzStlVector<qzStlVector<int>> const& value);
    virtual bool SetValue(qzStlVector<void*> const& value);
    virtual bool SetValue(FormulaBag const& value);
    virtual bool SetValue(qzStlVector<Formula> const& value);
    virtual bool SetValue(EntityList const& value);
    virtual bool SetValue(qzStlVector<Qualifier> const& value);
    virtual bool SetValue(qzStlVector<qzTTriple<int>> const& value);
    virtual bool SetValue(qzStlVector<qzTTriple<double>> const& value);
    virtual bool SetValue(qzStlVector<qzTCouple<double>> const& value);
    virtual bool SetValue(qzStlVector<qzString> const& value);
    virtual bool SetValue(qzStlVector<double> const& value);
    virtual bool SetValue(qzStlVector<float> const& value);
    virtual bool SetValue(qzStlVector<unsigned long> const& value);
    virtual bool SetValue(qzStlVector<long> const& value);
    virtual bool SetValue(qzStlVector<unsigned int> const& value);
    virtual bool SetValue(qzStlVector<int> const& value);
    virtual bool SetValue(qzStlVector<char> const& value);
    virtual bool SetValue(qzStlVector<bool> const& value);

    // Replaces one element of a bag, addressed by entity type.
    virtual bool SetValue(Formula const& value, EntityFullType const& type);
    virtual bool SetValue(Entity const& value, EntityFullType const& type, unsigned int index);

    // Replaces one element. A list grows as far as needed and answers true. A single element is stored, and
    // the answer is false: callers rely on it.
    virtual bool SetValue(Function const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(void* const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(Formula const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(Entity const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(Qualifier const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(Color const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(qzTMatrix44<double> const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(qzTMatrix33<double> const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(qzTTriple<int> const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(qzTTriple<float> const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(qzTTriple<double> const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(qzTCouple<int> const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(qzTCouple<float> const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(qzTCouple<double> const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(qzString const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(double const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(float const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(unsigned long const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(long const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(unsigned short const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(short const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(unsigned int const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(int const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(unsigned char const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(char const& value, unsigned int i, unsigned int j);
    virtual bool SetValue(bool const& value, unsigned int i, unsigned int j);

    virtual bool SetValueFromString(qzString const& text, EntityFullType const& type, unsigned int index,
                                    char const* format);
    /// Reads element (i, j) from text; false, changing nothing, when the text or the format does not fit. A
    /// caller's format converts exactly as many fields as the element has components.
    virtual bool SetValueFromString(qzString const& text, char const* format, unsigned int i, unsigned int j);

    virtual void SetDisplayStatus(DisplayStatus status) { m_displayStatus = status; }

    /// The address of element (i, j) of the data; null when there is none.
    virtual void const* GetMemoryLocation(unsigned int i, unsigned int j) const;
    virtual void* GetMemoryLocation(unsigned int i, unsigned int j);

    virtual ~ValuePtr() = default;

    /// The text kept beside an element; false, leaving the argument as it was, when the holder keeps none.
    virtual bool GetAssociatedString(qzString& text) const;

    /// True when something other than a Value owns this holder: Destroy leaves it alone, and a Value that is
    /// to take it over clones it.
    bool IsMemoryExternallyManaged() const { return m_memoryExternallyManaged; }
    /// A mark for owners; the holder only carries it.
    bool GetCorrespondsToEntityType() const { return m_correspondsToEntityType; }
    void SetCorrespondsToEntityType(bool corresponds) { m_correspondsToEntityType = corresponds; }

    // A holder of one element.
    static ValuePtr* Create(bool const& value, DisplayStatus status);
    static ValuePtr* Create(char const& value, DisplayStatus status);
    static ValuePtr* Create(unsigned char const& value, DisplayStatus status);
    static ValuePtr* Create(int const& value, DisplayStatus status);
    static ValuePtr* Create(unsigned int const& value, DisplayStatus status);
    static ValuePtr* Create(short const& value, DisplayStatus status);
    static ValuePtr* Create(unsigned short const& value, DisplayStatus status);
    static ValuePtr* Create(long const& value, DisplayStatus status);
    static ValuePtr* Create(unsigned long const& value, DisplayStatus status);
    static ValuePtr* Create(float const& value, DisplayStatus status);
    static ValuePtr* Create(double const& value, DisplayStatus status);
    static ValuePtr* Create(qzString const& value, DisplayStatus status);
    static ValuePtr* Create(qzTCouple<double> const& value, DisplayStatus status);
    static ValuePtr* Create(qzTCouple<float> const& value, DisplayStatus status);
    static ValuePtr* Create(qzTCouple<int> const& value, DisplayStatus status);
    static ValuePtr* Create(qzTTriple<double> const& value, DisplayStatus status);
    static ValuePtr* Create(qzTTriple<float> const& value, DisplayStatus status);
    static ValuePtr* Create(qzTTriple<int> const& value, DisplayStatus status);
    static ValuePtr* Create(qzTMatrix33<double> const& value, DisplayStatus status);
    static ValuePtr* Create(qzTMatrix44<double> const& value, DisplayStatus status);
    static ValuePtr* Create(Color const& value, DisplayStatus status);
    static ValuePtr* Create(Qualifier const& value, DisplayStatus status);
    static ValuePtr* Create(Entity const& value, DisplayStatus status);
    static ValuePtr* Create(Formula const& value, DisplayStatus status);
    static ValuePtr* Create(void* const& value, DisplayStatus status);
    static ValuePtr* Create(Function const& value, DisplayStatus status);
    /// A text literal, or another address of constant data, is no bool: say qzString.
    template <class T>
    requires std::is_const_v<T>
    static ValuePtr* Create(T* value, DisplayStatus status) = delete;

    // A holder of one element with a text beside it.
    static ValuePtr* Create(bool const& value, qzString const& associatedString, DisplayStatus status);
    static ValuePtr* Create(char const& value, qzString const& associatedString, DisplayStatus status);
    static ValuePtr* Create(unsigned char const& value, qzString const& associatedString,
                            DisplayStatus status);
    static ValuePtr* Create(int const& value, qzString const& associatedString, DisplayStatus status);
    static ValuePtr* Create(unsigned int const& value, qzString const& associatedString,
                            DisplayStatus status);
    static ValuePtr* Create(float const& value, qzString const& associatedString, DisplayStatus status);
    static ValuePtr* Create(double const& value, qzString const& associatedString, DisplayStatus status);
    static ValuePtr* Create(qzString const& value, qzString const& associatedString, DisplayStatus status);
    static ValuePtr* Create(qzTCouple<double> const& value, qzString const& associatedString,
                            DisplayStatus status);
    static ValuePtr* Create(qzTCouple<float> const& value, qzString const& associatedString,
                            DisplayStatus status);
    static ValuePtr* Create(qzTCouple<int> const& value, qzString const& associatedString,
                            DisplayStatus status);
    static ValuePtr* Create(qzTTriple<double> const& value, qzString const& associatedString,
                            DisplayStatus status);
    static ValuePtr* Create(qzTTriple<float> const& value, qzString const& associatedString,
                            DisplayStatus status);
    static ValuePtr* Create(qzTTriple<int> const& value, qzString const& associatedString,
                            DisplayStatus status);
    static ValuePtr* Create(qzTMatrix33<double> const& value, qzString const& associatedString,
                            DisplayStatus status);
    static ValuePtr* Create(qzTMatrix44<double> const& value, qzString const& associatedString,
                            DisplayStatus status);
    static ValuePtr* Create(Entity const& value, qzString const& associatedString, DisplayStatus status);
    template <class T>
    requires std::is_const_v<T>
    static ValuePtr* Create(T* value, qzString const& associatedString, DisplayStatus status) = delete;

    // A holder of a list, which is moved in.
    static ValuePtr* Create(qzStlVector<bool>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<char>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<int>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<unsigned int>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<long>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<unsigned long>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<float>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<double>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<qzString>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<qzTCouple<double>>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<qzTTriple<double>>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<qzTTriple<int>>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<Qualifier>&& value, DisplayStatus status);
    static ValuePtr* Create(EntityList&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<Formula>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<void*>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<qzStlVector<int>>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<qzStlVector<unsigned int>>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<qzStlVector<long>>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<qzStlVector<unsigned long>>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<qzStlVector<float>>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<qzStlVector<double>>&& value, DisplayStatus status);
    static ValuePtr* Create(qzStlVector<qzStlVector<qzTTriple<double>>>&& value, DisplayStatus status);
    static ValuePtr* Create(EntityList2&& value, DisplayStatus status);

    /// A holder of one element read from text; of the zero element when the text does not parse. Null for
    /// types that have no text: only scalars, tuples, matrices, colors and entities are made this way.
    static ValuePtr* Create(BasicType basic, CompoundType compound, qzString const& text, char const* format,
                            DisplayStatus status);

    /// A holder of an empty list with room for `count` elements or, when there are to be columns, of an empty
    /// two-level list with room for `count` rows; rows come to be by writing.
    /// For entities without columns, `count` selects the kind instead: 1 a list, 3 a bag, 4 a register of
    /// bags. Compound type CT_TABULAR makes a table whatever the count: an empty one in memory, or the one of
    /// a valid handle. Otherwise null for count 0 and for types without a list.
    static ValuePtr* Create(BasicType basic, CompoundType compound, unsigned int count, unsigned int columns,
                            DisplayStatus status, QZDT_DBHandle const& database);

    /// A holder for an attribute's definition, with its default; null for no definition or an invalid type.
    static ValuePtr* Create(Definition const* definition, DisplayStatus status,
                            QZDT_DBHandle const& database);

    /// Ends a holder and gives its memory back to its pool. Does nothing for null, nor for a holder that is
    /// externally managed.
    static void Destroy(ValuePtr* holder);

protected:
    ValuePtr(DisplayStatus status, bool memoryExternallyManaged)
        : m_displayStatus(status), m_memoryExternallyManaged(memoryExternallyManaged) {}
    ValuePtr(ValuePtr const& other);
    ValuePtr& operator=(ValuePtr const& other);

    /// Equal basic type, compound type, array dimension and extents.
    bool P_EqualTypes(ValuePtr const* other) const;

private:
    friend class Value;
    template <class T>
    friend class ScalarStorage;

    DisplayStatus m_displayStatus;
    bool m_memoryExternallyManaged = false;
    bool m_correspondsToEntityType = false;
    // The basic type of a holder of one number or text made by this library, else BT_NONE: what lets such a
    // holder be read and written without a virtual call.
    unsigned char m_scalarTag = 0;
};

} // namespace qzDescriptor
