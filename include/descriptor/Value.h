#pragma once

#include "descriptor/ScalarStorage.h"
#include "descriptor/ValuePtr.h"

#include <type_traits>
#include <utility>

namespace qzDescriptor {

/// One typed datum: a scalar, tuple, matrix, color, entity, qualifier, formula or function, or a list, bag or
/// table of them. What attributes hold and what defaults and allowed values are made of.
///
///     Value thickness;                       // empty: no type yet
///     thickness.SetValue(2.5);               // true: it is a double now
///     double t = 0;
///     thickness.GetValue(t);                 // true, 2.5
///     int n = 0;
///     thickness.GetValue(n);                 // false, n stays 0: nothing is ever converted
///
/// A value owns its holder, unless the holder is externally managed. It is not synchronised, but may be made
/// on one thread and ended on another.
class QZDESCRIPTOR_API Value {
public:
    /// An empty value: no type, and every getter and setter of lists fails.
    Value() noexcept = default;

    // A single element with a text beside it, which GetAssociatedString reads.
    explicit Value(bool const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(char const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(unsigned char const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(int const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(unsigned int const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(float const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(double const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(qzString const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(qzTCouple<double> const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(qzTCouple<float> const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(qzTCouple<int> const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(qzTTriple<double> const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(qzTTriple<float> const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(qzTTriple<int> const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(qzTMatrix33<double> const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(qzTMatrix44<double> const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    explicit Value(Entity const& value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT);
    /// Nothing is converted on the way in: a text literal is no bool (say qzString), and neither is a
    /// pointer.
    template <class T>
    requires(!std::is_convertible_v<T*, ValuePtr*>) explicit Value(
        T* value, qzString const& associatedString = qzString(), DisplayStatus status = DS_DEFAULT) = delete;
    explicit Value(short value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT) = delete;
    explicit Value(unsigned short value, qzString const& associatedString = qzString(),
                   DisplayStatus status = DS_DEFAULT) = delete;

    /// Takes the holder over; null makes an empty value.
    explicit Value(ValuePtr* holder) noexcept : m_holder(holder) {}
    /// An attribute's default value, by its definition.
    Value(Definition const* definition, DisplayStatus status, QZDT_DBHandle const& database);
    /// A single element read from text, the zero element when it does not parse; empty for types without
    /// text.
    Value(BasicType basic, CompoundType compound, qzString const& text, char const* format,
          DisplayStatus status);
    /// An empty list; see ValuePtr::Create.
    Value(BasicType basic, CompoundType compound, unsigned int count, unsigned int columns,
          DisplayStatus status, QZDT_DBHandle const& database);

    Value(Value const& other);
    /// Takes the other's holder; one that is externally managed is cloned instead, and a clone that finds no
    /// memory ends the program: moving never throws, so that vectors of values grow without copies.
    Value(Value&& other) noexcept;
    virtual ~Value();

    Value& operator=(Value const& other);
    Value& operator=(Value&& other) noexcept;
    Value& operator=(ValuePtr const& holder);

    /// Makes both values refer to the source's holder. The source is not emptied: the caller must see to it
    /// that only one of them releases the holder.
    void MoveValue(Value& source);

    /// Gives the holder to the caller, who ends it with ValuePtr::Destroy, and empties the value.
    ValuePtr* Release() noexcept { return std::exchange(m_holder, nullptr); }

    ValuePtr const* GetValuePtr() const { return m_holder; }
    ValuePtr* GetValuePtr() { return m_holder; }

    BasicType GetBasicType() const;
    CompoundType GetCompoundType() const;
    unsigned int GetArrayDimension() const;
    unsigned int GetArrayDimensionExtent(unsigned int dimension) const;
    unsigned int GetArrayDimensionExtent(EntityFullType const& type) const;
    bool IsBagType() const;
    EntityFullType GetEntityFullType() const;
    std::size_t GetValueMemoryUsage() const;
    DisplayStatus GetDisplayStatus() const;
    void SetDisplayStatus(DisplayStatus status);
    bool GetCorrespondsToEntityType() const;
    void SetCorrespondsToEntityType(bool corresponds);
    bool GetAssociatedString(qzString& text) const;

    // Copies one element out: false, leaving the argument as it was, when the type is another or there is no
    // such element. i is the place in a list, or the row of a two-level one and j the column.
    bool GetValue(bool& value, unsigned int i = 0, unsigned int j = 0) const { return P_Get(value, i, j); }
    bool GetValue(char& value, unsigned int i = 0, unsigned int j = 0) const { return P_Get(value, i, j); }
    bool GetValue(unsigned char& value, unsigned int i = 0, unsigned int j = 0) const {
        return P_Get(value, i, j);
    }
    bool GetValue(int& value, unsigned int i = 0, unsigned int j = 0) const { return P_Get(value, i, j); }
    bool GetValue(unsigned int& value, unsigned int i = 0, unsigned int j = 0) const {
        return P_Get(value, i, j);
    }
    bool GetValue(short& value, unsigned int i = 0, unsigned int j = 0) const { return P_Get(value, i, j); }
    bool GetValue(unsigned short& value, unsigned int i = 0, unsigned int j = 0) const {
        return P_Get(value, i, j);
    }
    bool GetValue(long& value, unsigned int i = 0, unsigned int j = 0) const { return P_Get(value, i, j); }
    bool GetValue(unsigned long& value, unsigned int i = 0, unsigned int j = 0) const {
        return P_Get(value, i, j);
    }
    bool GetValue(float& value, unsigned int i = 0, unsigned int j = 0) const { return P_Get(value, i, j); }
    bool GetValue(double& value, unsigned int i = 0, unsigned int j = 0) const { return P_Get(value, i, j); }
    bool GetValue(qzString& value, unsigned int i = 0, unsigned int j = 0) const;
    bool GetValue(qzTCouple<double>& value, unsigned int i = 0, unsigned int j = 0) const;
    bool GetValue(qzTCouple<float>& value, unsigned int i = 0, unsigned int j = 0) const;
    bool GetValue(qzTCouple<int>& value, unsigned int i = 0, unsigned int j = 0) const;
    bool GetValue(qzTTriple<double>& value, unsigned int i = 0, unsigned int j = 0) const;
    bool GetValue(qzTTriple<float>& value, unsigned int i = 0, unsigned int j = 0) const;
    bool GetValue(qzTTriple<int>& value, unsigned int i = 0, unsigned int j = 0) const;
    bool GetValue(qzTMatrix33<double>& value, unsigned int i = 0, unsigned int j = 0) const;
    bool GetValue(qzTMatrix44<double>& value, unsigned int i = 0, unsigned int j = 0) const;
    bool GetValue(Color& value, unsigned int i = 0, unsigned int j = 0) const;
    bool GetValue(Qualifier& value, unsigned int i = 0, unsigned int j = 0) const;
    bool GetValue(Entity& value, unsigned int i = 0, unsigned int j = 0) const;
    bool GetValue(Formula& value, unsigned int i = 0, unsigned int j = 0) const;
    bool GetValue(void*& value, unsigned int i = 0, unsigned int j = 0) const;
    bool GetValue(Function& value, unsigned int i = 0, unsigned int j = 0) const;

    // Copies one element out of a bag, addressed by entity type.
    bool GetValue(Entity& value, EntityFullType const& type, unsigned int index) const;
    bool GetValue(Formula& value, EntityFullType const& type) const;

    // Copies the whole list, bag or table out.
    bool GetValue(qzStlVector<bool>& value) const;
    bool GetValue(qzStlVector<char>& value) const;
    bool GetValue(qzStlVector<int>& value) const;
    bool GetValue(qzStlVector<unsigned int>& value) const;
    bool GetValue(qzStlVector<long>& value) const;
    bool GetValue(qzStlVector<unsigned long>& value) const;
    bool GetValue(qzStlVector<float>& value) const;
    bool GetValue(qzStlVector<double>& value) const;
    bool GetValue(qzStlVector<qzString>& value) const;
    bool GetValue(qzStlVector<qzTCouple<double>>& value) const;
    bool GetValue(qzStlVector<qzTTriple<double>>& value) const;
    bool GetValue(qzStlVector<qzTTriple<int>>& value) const;
    bool GetValue(qzStlVector<Qualifier>& value) const;
    bool GetValue(EntityList& value) const;
    bool GetValue(qzStlVector<Formula>& value) const;
    bool GetValue(FormulaBag& value) const;
    bool GetValue(qzStlVector<void*>& value) const;
    bool GetValue(qzStlVector<qzStlVector<int>>& value) const;
    bool GetValue(qzStlVector<qzStlVector<unsigned int>>& value) const;
    bool GetValue(qzStlVector<qzStlVector<long>>& value) const;
    bool GetValue(qzStlVector<qzStlVector<unsigned long>>& value) const;
    bool GetValue(qzStlVector<qzStlVector<float>>& value) const;
    bool GetValue(qzStlVector<qzStlVector<double>>& value) const;
    bool GetValue(qzStlVector<qzStlVector<qzTTriple<double>>>& value) const;
    bool GetValue(EntityList2& value) const;
    bool GetValue(EntityListBag& value) const;
    bool GetValue(EntityListBagList& value) const;
    bool GetValue(Tabular& value) const;

    // Addresses of elements, valid until the value changes; null when the type is another or there is none.
    bool const* GetValuePointerBool(unsigned int i = 0, unsigned int j = 0) const;
    char const* GetValuePointerChar(unsigned int i = 0, unsigned int j = 0) const;
    unsigned char const* GetValuePointerUChar(unsigned int i = 0, unsigned int j = 0) const;
    int const* GetValuePointerInt(unsigned int i = 0, unsigned int j = 0) const;
    unsigned int const* GetValuePointerUInt(unsigned int i = 0, unsigned int j = 0) const;
    short const* GetValuePointerShort(unsigned int i = 0, unsigned int j = 0) const;
    unsigned short const* GetValuePointerUShort(unsigned int i = 0, unsigned int j = 0) const;
    long const* GetValuePointerLong(unsigned int i = 0, unsigned int j = 0) const;
    unsigned long const* GetValuePointerULong(unsigned int i = 0, unsigned int j = 0) const;
    float const* GetValuePointerFloat(unsigned int i = 0, unsigned int j = 0) const;
    double const* GetValuePointerDouble(unsigned int i = 0, unsigned int j = 0) const;
    qzString const* GetValuePointerString(unsigned int i = 0, unsigned int j = 0) const;
    qzTCouple<double> const* GetValuePointerCouple(unsigned int i = 0, unsigned int j = 0) const;
    qzTCouple<float> const* GetValuePointerCoupleF(unsigned int i = 0, unsigned int j = 0) const;
    qzTCouple<int> const* GetValuePointerCoupleI(unsigned int i = 0, unsigned int j = 0) const;
    qzTTriple<double> const* GetValuePointerTriple(unsigned int i = 0, unsigned int j = 0) const;
    qzTTriple<float> const* GetValuePointerTripleF(unsigned int i = 0, unsigned int j = 0) const;
    qzTTriple<int> const* GetValuePointerTripleI(unsigned int i = 0, unsigned int j = 0) const;
    qzTMatrix33<double> const* GetValuePointerMatrix33(unsigned int i = 0, unsigned int j = 0) const;
    qzTMatrix44<double> const* GetValuePointerMatrix44(unsigned int i = 0, unsigned int j = 0) const;
    Color const* GetValuePointerColor(unsigned int i = 0, unsigned int j = 0) const;
    Qualifier const* GetValuePointerQualifier(unsigned int i = 0, unsigned int j = 0) const;
    Entity const* GetValuePointerEntity(unsigned int i = 0, unsigned int j = 0) const;
    Entity const* GetValuePointerEntity(EntityFullType const& type, unsigned int index) const;
    Formula const* GetValuePointerFormula(unsigned int i = 0, unsigned int j = 0) const;
    Formula const* GetValuePointerFormula(EntityFullType const& type) const;
    void* const* GetValuePointerVoid(unsigned int i = 0, unsigned int j = 0) const;
    Function const* GetValuePointerFunction(unsigned int i = 0, unsigned int j = 0) const;

    // Addresses of whole lists, bags and tables.
    qzStlVector<bool> const* GetValuePointerBoolList() const;
    qzStlVector<char> const* GetValuePointerCharList() const;
    qzStlVector<int> const* GetValuePointerIntList() const;
    qzStlVector<unsigned int> const* GetValuePointerUIntList() const;
    qzStlVector<long> const* GetValuePointerLongList() const;
    qzStlVector<unsigned long> const* GetValuePointerULongList() const;
    qzStlVector<float> const* GetValuePointerFloatList() const;
    qzStlVector<double> const* GetValuePointerDoubleList() const;
    qzStlVector<qzString> const* GetValuePointerStringList() const;
    qzStlVector<qzTCouple<double>> const* GetValuePointerCoupleList() const;
    qzStlVector<qzTTriple<double>> const* GetValuePointerTripleList() const;
    qzStlVector<qzTTriple<int>> const* GetValuePointerTripleIList() const;
    qzStlVector<Qualifier> const* GetValuePointerQualifierList() const;
    EntityList const* GetValuePointerEntityList() const;
    qzStlVector<Formula> const* GetValuePointerFormulaList() const;
    FormulaBag const* GetValuePointerFormulaBag() const;
    qzStlVector<void*> const* GetValuePointerPointerList() const;
    qzStlVector<qzStlVector<int>> const* GetValuePointerIntList2() const;
    qzStlVector<qzStlVector<unsigned int>> const* GetValuePointerUIntList2() const;
    qzStlVector<qzStlVector<long>> const* GetValuePointerLongList2() const;
    qzStlVector<qzStlVector<unsigned long>> const* GetValuePointerULongList2() const;
    qzStlVector<qzStlVector<float>> const* GetValuePointerFloatList2() const;
    qzStlVector<qzStlVector<double>> const* GetValuePointerDoubleList2() const;
    qzStlVector<qzStlVector<qzTTriple<double>>> const* GetValuePointerTripleList2() const;
    EntityList2 const* GetValuePointerEntityList2() const;
    EntityListBag const* GetValuePointerEntityListBag() const;
    EntityListBagList const* GetValuePointerEntityListBagList() const;
    Tabular const* GetValuePointerTabular() const;

    // Replaces one element. When the value holds elements of another type, or nothing, it becomes a single
    // element of this type and the answer is true. When it holds elements of this type, the element is
    // written into them: a list grows as far as needed and answers true; a single element is stored and the
    // answer is false, which is no failure.
    bool SetValue(bool const& value, unsigned int i = 0, unsigned int j = 0) { return P_Set(value, i, j); }
    bool SetValue(char const& value, unsigned int i = 0, unsigned int j = 0) { return P_Set(value, i, j); }
    bool SetValue(unsigned char const& value, unsigned int i = 0, unsigned int j = 0) {
        return P_Set(value, i, j);
    }
    bool SetValue(int const& value, unsigned int i = 0, unsigned int j = 0) { return P_Set(value, i, j); }
    bool SetValue(unsigned int const& value, unsigned int i = 0, unsigned int j = 0) {
        return P_Set(value, i, j);
    }
    bool SetValue(short const& value, unsigned int i = 0, unsigned int j = 0) { return P_Set(value, i, j); }
    bool SetValue(unsigned short const& value, unsigned int i = 0, unsigned int j = 0) {
        return P_Set(value, i, j);
    }
    bool SetValue(long const& value, unsigned int i = 0, unsigned int j = 0) { return P_Set(value, i, j); }
    bool SetValue(unsigned long const& value, unsigned int i = 0, unsigned int j = 0) {
        return P_Set(value, i, j);
    }
    bool SetValue(float const& value, unsigned int i = 0, unsigned int j = 0) { return P_Set(value, i, j); }
    bool SetValue(double const& value, unsigned int i = 0, unsigned int j = 0) { return P_Set(value, i, j); }
    bool SetValue(qzString const& value, unsigned int i = 0, unsigned int j = 0);
    bool SetValue(qzTCouple<double> const& value, unsigned int i = 0, unsigned int j = 0);
    bool SetValue(qzTCouple<float> const& value, unsigned int i = 0, unsigned int j = 0);
    bool SetValue(qzTCouple<int> const& value, unsigned int i = 0, unsigned int j = 0);
    bool SetValue(qzTTriple<double> const& value, unsigned int i = 0, unsigned int j = 0);
    bool SetValue(qzTTriple<float> const& value, unsigned int i = 0, unsigned int j = 0);
    bool SetValue(qzTTriple<int> const& value, unsigned int i = 0, unsigned int j = 0);
    bool SetValue(qzTMatrix33<double> const& value, unsigned int i = 0, unsigned int j = 0);
    bool SetValue(qzTMatrix44<double> const& value, unsigned int i = 0, unsigned int j = 0);
    bool SetValue(Color const& value, unsigned int i = 0, unsigned int j = 0);
    bool SetValue(Qualifier const& value, unsigned int i = 0, unsigned int j = 0);
    bool SetValue(Entity const& value, unsigned int i = 0, unsigned int j = 0);
    bool SetValue(Formula const& value, unsigned int i = 0, unsigned int j = 0);
    bool SetValue(void* const& value, unsigned int i = 0, unsigned int j = 0);
    bool SetValue(Function const& value, unsigned int i = 0, unsigned int j = 0);
    /// A text literal, or another address of constant data, is no bool.
    template <class T>
    requires std::is_const_v<T>
    bool SetValue(T* value, unsigned int i = 0, unsigned int j = 0) = delete;

    // Replaces one element of a bag, addressed by entity type.
    bool SetValue(Entity const& value, EntityFullType const& type, unsigned int index);
    bool SetValue(Formula const& value, EntityFullType const& type);

    // Replaces the whole list, bag or table; never changes the value's type.
    bool SetValue(qzStlVector<bool> const& value);
    bool SetValue(qzStlVector<char> const& value);
    bool SetValue(qzStlVector<int> const& value);
    bool SetValue(qzStlVector<unsigned int> const& value);
    bool SetValue(qzStlVector<long> const& value);
    bool SetValue(qzStlVector<unsigned long> const& value);
    bool SetValue(qzStlVector<float> const& value);
    bool SetValue(qzStlVector<double> const& value);
    bool SetValue(qzStlVector<qzString> const& value);
    bool SetValue(qzStlVector<qzTCouple<double>> const& value);
    bool SetValue(qzStlVector<qzTTriple<double>> const& value);
    bool SetValue(qzStlVector<qzTTriple<int>> const& value);
    bool SetValue(qzStlVector<Qualifier> const& value);
    bool SetValue(EntityList const& value);
    bool SetValue(qzStlVector<Formula> const& value);
    bool SetValue(FormulaBag const& value);
    bool SetValue(qzStlVector<void*> const& value);
    bool SetValue(qzStlVector<qzStlVector<int>> const& value);
    bool SetValue(qzStlVector<qzStlVector<unsigned int>> const& value);
    bool SetValue(qzStlVector<qzStlVector<long>> const& value);
    bool SetValue(qzStlVector<qzStlVector<unsigned long>> const& value);
    bool SetValue(qzStlVector<qzStlVector<float>> const& value);
    bool SetValue(qzStlVector<qzStlVector<double>> const& value);
    bool SetValue(qzStlVector<qzStlVector<qzTTriple<double>>> const& value);
    bool SetValue(EntityList2 const& value);
    bool SetValue(EntityListBag const& value);
    bool SetValue(EntityListBagList const& value);
    bool SetValue(Tabular const& value);

    /// The text of element (i, j), or of the whole value; see ValuePtr. `out` is emptied on failure.
    bool GetValueAsString(qzString& out, char const* format = nullptr,
                          unsigned int i = ValuePtr::s_wholeValue,
                          unsigned int j = ValuePtr::s_wholeValue) const;
    bool GetValueAsString(qzString& out, EntityFullType const& type, unsigned int index,
                          char const* format = nullptr) const;
    /// Reads element (i, j) from text; false, changing nothing, when it does not fit. The type stays.
    bool SetValueFromString(qzString const& text, char const* format = nullptr, unsigned int i = 0,
                            unsigned int j = 0);
    bool SetValueFromString(qzString const& text, EntityFullType const& type, unsigned int index,
                            char const* format = nullptr);

    /// Equal types, display statuses and data, floating data exactly; two empty values are equal.
    QZDESCRIPTOR_API friend bool operator==(Value const& a, Value const& b);
    /// Equal types and smaller data; false when either is empty.
    QZDESCRIPTOR_API friend bool operator<(Value const& a, Value const& b);

    /// Whether two values of one type agree: floating numbers within the tolerance, everything else exactly;
    /// display statuses take no part. A tolerance not above 0 means 1e-12. Relative: the difference over the
    /// mean magnitude, and numbers whose mean magnitude is below 1e-12 agree. NaN agrees with nothing.
    static bool AreEqualWithinTolerance(Value const& a, Value const& b, double tolerance, bool relative);

private:
    template <class T>
    bool P_Get(T& value, unsigned int i, unsigned int j) const {
        if (m_holder == nullptr)
            return false;
        if (ScalarStorage<T> const* const scalar = ScalarStorage<T>::Of(m_holder)) {
            value = scalar->m_value;
            return true;
        }
        return m_holder->GetValue(value, i, j);
    }

    template <class T>
    bool P_Set(T const& value, unsigned int i, unsigned int j) {
        if (m_holder != nullptr) {
            if (ScalarStorage<T>* const scalar = ScalarStorage<T>::Of(m_holder)) {
                scalar->m_value = value;
                return false;
            }
        }
        return P_SetElement(value, i, j);
    }

    template <class T>
    bool P_SetElement(T const& value, unsigned int i, unsigned int j);
    void P_Replace(ValuePtr* holder);

    ValuePtr* m_holder = nullptr;
};

} // namespace qzDescriptor
