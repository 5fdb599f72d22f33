#pragma once

#include "descriptor/BoundT.h"
#include "descriptor/Export.h"
#include "descriptor/Forward.h"

#include <cstdint>
#include <type_traits>
#include <utility>

namespace qzDescriptor {

class AllowablesData;

/// The constraint of one attribute: which values it may take and which is its default. It is made in one of
/// three ways, from a default alone, which restricts nothing; from bounds; or from a list of allowed values:
///
///     Allowables thickness(BoundT<double>(0.0, BoundT<double>::Greater), 1.0);
///     thickness.Test(2.5);                // 0: allowed
///     thickness.Test(-1.0);               // 1: refused
///     thickness.GetFailureMessage();      // "Input of -1 violates: VALUE > 0"
///     thickness.Test(-1);                 // 0: an int is not its type, nothing is tested or converted
///
///     Allowables material;                // null: no constraint at all
///     material = Allowables(qzString("steel"));
///
/// Operations of another type, or that the kind of constraint does not have, answer false, 0 or nothing, and
/// leave their arguments as they were. Nothing throws: a constraint that finds no memory is null.
///
/// Not synchronised, but any number of threads may test one constraint; the failure message is that of one of
/// them.
class QZDESCRIPTOR_API Allowables {
public:
    /// An allowed value and its display name, one after the other.
    template <class T>
    using List = qzStlVector<std::pair<T, qzString>>;

    /// The kinds of sub-types of an entity type, such as the configurations of an element. The codes belong
    /// to those who define the entities.
    enum SubType : std::int32_t { SUBTYPE_NONE = 0 };

    /// While one lives, Test of a Value tests; otherwise it lets everything pass. Guards do not nest: the end
    /// of any of them ends the testing.
    class QZDESCRIPTOR_API EnforceGenericTestSentinel {
    public:
        EnforceGenericTestSentinel();
        ~EnforceGenericTestSentinel();

    private:
        EnforceGenericTestSentinel(EnforceGenericTestSentinel const&) = delete;
        EnforceGenericTestSentinel& operator=(EnforceGenericTestSentinel const&) = delete;
    };

    /// Null: no constraint.
    Allowables() noexcept = default;

    // A default that restricts nothing.
    explicit Allowables(bool const& defaultValue);
    explicit Allowables(char const& defaultValue);
    explicit Allowables(unsigned char const& defaultValue);
    explicit Allowables(short const& defaultValue);
    explicit Allowables(unsigned short const& defaultValue);
    explicit Allowables(int const& defaultValue);
    explicit Allowables(unsigned int const& defaultValue);
    explicit Allowables(long const& defaultValue);
    explicit Allowables(unsigned long const& defaultValue);
    explicit Allowables(float const& defaultValue);
    explicit Allowables(double const& defaultValue);
    explicit Allowables(qzString const& defaultValue);
    explicit Allowables(qzTCouple<double> const& defaultValue);
    explicit Allowables(qzTCouple<float> const& defaultValue);
    explicit Allowables(qzTCouple<int> const& defaultValue);
    explicit Allowables(qzTTriple<double> const& defaultValue);
    explicit Allowables(qzTTriple<float> const& defaultValue);
    explicit Allowables(qzTTriple<int> const& defaultValue);
    explicit Allowables(qzTMatrix33<double> const& defaultValue);
    explicit Allowables(qzTMatrix44<double> const& defaultValue);
    explicit Allowables(Color const& defaultValue);
    explicit Allowables(EntityFullType const& defaultValue);
    explicit Allowables(Qualifier const& defaultValue);
    /// A text literal is no bool: say qzString.
    template <class T>
    explicit Allowables(T* defaultValue) = delete;

    // One bound and a default. The default may lie outside: see Test.
    Allowables(BoundT<char> const& bound, char defaultValue);
    Allowables(BoundT<unsigned char> const& bound, unsigned char defaultValue);
    Allowables(BoundT<short> const& bound, short defaultValue);
    Allowables(BoundT<unsigned short> const& bound, unsigned short defaultValue);
    Allowables(BoundT<int> const& bound, int defaultValue);
    Allowables(BoundT<unsigned int> const& bound, unsigned int defaultValue);
    Allowables(BoundT<long> const& bound, long defaultValue);
    Allowables(BoundT<unsigned long> const& bound, unsigned long defaultValue);
    Allowables(BoundT<float> const& bound, float defaultValue);
    Allowables(BoundT<double> const& bound, double defaultValue);

    // Any number of bounds, each of which a value has to meet, and a default.
    Allowables(qzStlVector<BoundT<char>> const& bounds, char defaultValue);
    Allowables(qzStlVector<BoundT<unsigned char>> const& bounds, unsigned char defaultValue);
    Allowables(qzStlVector<BoundT<short>> const& bounds, short defaultValue);
    Allowables(qzStlVector<BoundT<unsigned short>> const& bounds, unsigned short defaultValue);
    Allowables(qzStlVector<BoundT<int>> const& bounds, int defaultValue);
    Allowables(qzStlVector<BoundT<unsigned int>> const& bounds, unsigned int defaultValue);
    Allowables(qzStlVector<BoundT<long>> const& bounds, long defaultValue);
    Allowables(qzStlVector<BoundT<unsigned long>> const& bounds, unsigned long defaultValue);
    Allowables(qzStlVector<BoundT<float>> const& bounds, float defaultValue);
    Allowables(qzStlVector<BoundT<double>> const& bounds, double defaultValue);

    // The values that are allowed, and the index of the default among them (there is none when the index is
    // past the end). An entry without a name is named by the text of its value.
    Allowables(List<bool> const& list, unsigned int defaultIndex);
    Allowables(List<char> const& list, unsigned int defaultIndex);
    Allowables(List<unsigned char> const& list, unsigned int defaultIndex);
    Allowables(List<short> const& list, unsigned int defaultIndex);
    Allowables(List<unsigned short> const& list, unsigned int defaultIndex);
    Allowables(List<int> const& list, unsigned int defaultIndex);
    Allowables(List<unsigned int> const& list, unsigned int defaultIndex);
    Allowables(List<long> const& list, unsigned int defaultIndex);
    Allowables(List<unsigned long> const& list, unsigned int defaultIndex);
    Allowables(List<float> const& list, unsigned int defaultIndex);
    Allowables(List<double> const& list, unsigned int defaultIndex);
    Allowables(List<qzString> const& list, unsigned int defaultIndex);
    Allowables(List<qzTCouple<double>> const& list, unsigned int defaultIndex);
    Allowables(List<qzTCouple<float>> const& list, unsigned int defaultIndex);
    Allowables(List<qzTCouple<int>> const& list, unsigned int defaultIndex);
    Allowables(List<qzTTriple<double>> const& list, unsigned int defaultIndex);
    Allowables(List<qzTTriple<float>> const& list, unsigned int defaultIndex);
    Allowables(List<qzTTriple<int>> const& list, unsigned int defaultIndex);
    Allowables(List<qzTMatrix33<double>> const& list, unsigned int defaultIndex);
    Allowables(List<qzTMatrix44<double>> const& list, unsigned int defaultIndex);
    Allowables(List<Color> const& list, unsigned int defaultIndex);
    Allowables(List<EntityFullType> const& list, unsigned int defaultIndex);
    Allowables(List<Qualifier> const& list, unsigned int defaultIndex);

    /// Reads "LIST(2, 4, 8) DEFAULT(4)", either part alone, or nothing: a text with neither keyword is null.
    /// Items are separated by commas outside of quotes and brackets; the components of a tuple by blanks.
    /// Items that do not read as the given type are left out.
    Allowables(BasicType basic, CompoundType compound, qzString const& text);

    Allowables(Allowables const& other);
    Allowables(Allowables&& other) noexcept : m_data(std::exchange(other.m_data, nullptr)) {}
    ~Allowables();
    Allowables& operator=(Allowables const& other);
    Allowables& operator=(Allowables&& other) noexcept;

    /// Of the same kind, type and content; the failure message takes no part. The defaults of matrices agree
    /// within 1e-8, everything else exactly.
    QZDESCRIPTOR_API friend bool operator==(Allowables const& a, Allowables const& b);

    /// Takes over what another constraint of the same kind and type allows (its bounds, or both of its
    /// lists), its default, or both. False, changing nothing, for one of another kind or type. A default that
    /// stays behind, or comes alone, is sought in the list by its value; index 0 stands for one that is not
    /// there.
    bool Copy(Allowables const& other, bool takeAllowed, bool takeDefault);

    BasicType GetBasicType() const;
    CompoundType GetCompoundType() const;
    /// Whether there is a constraint.
    bool IsValid() const { return m_data != nullptr; }
    /// Whether the constraint can refuse a value: it has bounds or a list.
    bool Enforceable() const;

    bool HaveBounds() const;
    /// Always 0; the bounds are counted in what GetBounds gives.
    unsigned int GetBoundsCount() const { return 0; }
    bool GetBounds(qzStlVector<BoundT<char>>& bounds) const;
    bool GetBounds(qzStlVector<BoundT<unsigned char>>& bounds) const;
    bool GetBounds(qzStlVector<BoundT<short>>& bounds) const;
    bool GetBounds(qzStlVector<BoundT<unsigned short>>& bounds) const;
    bool GetBounds(qzStlVector<BoundT<int>>& bounds) const;
    bool GetBounds(qzStlVector<BoundT<unsigned int>>& bounds) const;
    bool GetBounds(qzStlVector<BoundT<long>>& bounds) const;
    bool GetBounds(qzStlVector<BoundT<unsigned long>>& bounds) const;
    bool GetBounds(qzStlVector<BoundT<float>>& bounds) const;
    bool GetBounds(qzStlVector<BoundT<double>>& bounds) const;

    // The default; false when there is none. That of entity types fills a Value as an entity without an id.
    bool GetDefault(bool& value) const;
    bool GetDefault(char& value) const;
    bool GetDefault(unsigned char& value) const;
    bool GetDefault(short& value) const;
    bool GetDefault(unsigned short& value) const;
    bool GetDefault(int& value) const;
    bool GetDefault(unsigned int& value) const;
    bool GetDefault(long& value) const;
    bool GetDefault(unsigned long& value) const;
    bool GetDefault(float& value) const;
    bool GetDefault(double& value) const;
    bool GetDefault(qzString& value) const;
    bool GetDefault(qzTCouple<double>& value) const;
    bool GetDefault(qzTCouple<float>& value) const;
    bool GetDefault(qzTCouple<int>& value) const;
    bool GetDefault(qzTTriple<double>& value) const;
    bool GetDefault(qzTTriple<float>& value) const;
    bool GetDefault(qzTTriple<int>& value) const;
    bool GetDefault(qzTMatrix33<double>& value) const;
    bool GetDefault(qzTMatrix44<double>& value) const;
    bool GetDefault(Color& value) const;
    bool GetDefault(EntityFullType& value) const;
    bool GetDefault(Qualifier& value) const;
    bool GetDefault(Value& value) const;
    void SetDefaultIdx(unsigned int index);

    // The list. Each constraint made from a list has two, the main one and an extra one; what is asked and
    // done concerns the one that SetOperateOnExtra selects.
    bool GetOperateOnExtra() const;
    /// 1 when there are lists to choose from, else 0.
    int SetOperateOnExtra(bool extra);

    bool HaveList() const;
    unsigned int GetListCount() const;
    bool GetList(List<bool>& list, unsigned int& defaultIndex) const;
    bool GetList(List<char>& list, unsigned int& defaultIndex) const;
    bool GetList(List<unsigned char>& list, unsigned int& defaultIndex) const;
    bool GetList(List<short>& list, unsigned int& defaultIndex) const;
    bool GetList(List<unsigned short>& list, unsigned int& defaultIndex) const;
    bool GetList(List<int>& list, unsigned int& defaultIndex) const;
    bool GetList(List<unsigned int>& list, unsigned int& defaultIndex) const;
    bool GetList(List<long>& list, unsigned int& defaultIndex) const;
    bool GetList(List<unsigned long>& list, unsigned int& defaultIndex) const;
    bool GetList(List<float>& list, unsigned int& defaultIndex) const;
    bool GetList(List<double>& list, unsigned int& defaultIndex) const;
    bool GetList(List<qzString>& list, unsigned int& defaultIndex) const;
    bool GetList(List<qzTCouple<double>>& list, unsigned int& defaultIndex) const;
    bool GetList(List<qzTCouple<float>>& list, unsigned int& defaultIndex) const;
    bool GetList(List<qzTCouple<int>>& list, unsigned int& defaultIndex) const;
    bool GetList(List<qzTTriple<double>>& list, unsigned int& defaultIndex) const;
    bool GetList(List<qzTTriple<float>>& list, unsigned int& defaultIndex) const;
    bool GetList(List<qzTTriple<int>>& list, unsigned int& defaultIndex) const;
    bool GetList(List<qzTMatrix33<double>>& list, unsigned int& defaultIndex) const;
    bool GetList(List<qzTMatrix44<double>>& list, unsigned int& defaultIndex) const;
    bool GetList(List<Color>& list, unsigned int& defaultIndex) const;
    bool GetList(List<EntityFullType>& list, unsigned int& defaultIndex) const;
    bool GetList(List<Qualifier>& list, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<bool>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<char>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<unsigned char>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<short>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<unsigned short>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<int>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<unsigned int>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<long>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<unsigned long>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<float>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<double>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<qzString>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<qzTCouple<double>>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<qzTCouple<float>>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<qzTCouple<int>>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<qzTTriple<double>>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<qzTTriple<float>>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<qzTTriple<int>>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<qzTMatrix33<double>>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<qzTMatrix44<double>>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<Color>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<EntityFullType>& values, unsigned int& defaultIndex) const;
    bool GetValueList(qzStlVector<Qualifier>& values, unsigned int& defaultIndex) const;
    bool GetNameList(qzStlVector<qzString>& names, unsigned int& defaultIndex) const;

    /// Appends an entry; without a name it is named by the text of its value.
    Allowables& AddToList(bool const& value, qzString const& name);
    Allowables& AddToList(char const& value, qzString const& name);
    Allowables& AddToList(unsigned char const& value, qzString const& name);
    Allowables& AddToList(short const& value, qzString const& name);
    Allowables& AddToList(unsigned short const& value, qzString const& name);
    Allowables& AddToList(int const& value, qzString const& name);
    Allowables& AddToList(unsigned int const& value, qzString const& name);
    Allowables& AddToList(long const& value, qzString const& name);
    Allowables& AddToList(unsigned long const& value, qzString const& name);
    Allowables& AddToList(float const& value, qzString const& name);
    Allowables& AddToList(double const& value, qzString const& name);
    Allowables& AddToList(qzString const& value, qzString const& name);
    Allowables& AddToList(qzTCouple<double> const& value, qzString const& name);
    Allowables& AddToList(qzTCouple<float> const& value, qzString const& name);
    Allowables& AddToList(qzTCouple<int> const& value, qzString const& name);
    Allowables& AddToList(qzTTriple<double> const& value, qzString const& name);
    Allowables& AddToList(qzTTriple<float> const& value, qzString const& name);
    Allowables& AddToList(qzTTriple<int> const& value, qzString const& name);
    Allowables& AddToList(qzTMatrix33<double> const& value, qzString const& name);
    Allowables& AddToList(qzTMatrix44<double> const& value, qzString const& name);
    Allowables& AddToList(Color const& value, qzString const& name);
    Allowables& AddToList(EntityFullType const& value, qzString const& name);
    Allowables& AddToList(Qualifier const& value, qzString const& name);
    template <class T>
    Allowables& AddToList(T* value, qzString const& name) = delete;
    /// Removes one entry, or all of them for index 0xFFFFFFFF. The default stays the same entry; when it
    /// goes, the first entry becomes the default.
    bool RemoveFromList(unsigned int index);
    bool SetListItemName(unsigned int index, qzString const& name);
    qzString GetListItemName(unsigned int index) const;

    /// Names the sub-types of an entity type that the list holds; false when it does not, and for a name that
    /// the type has already.
    bool AddSubType(EntityFullType const& type, SubType kind, qzString const& name);
    bool RemoveSubType(EntityFullType const& type, SubType kind, qzString const& name);
    unsigned int GetSubTypeCount(EntityFullType const& type, SubType kind) const;
    bool GetSubTypeName(EntityFullType const& type, SubType kind, unsigned int index, qzString& name) const;

    // 0 when the value is allowed, 1 when it is not, 2 when it is the default although its bounds exclude it.
    int Test(bool const& value) const;
    int Test(char const& value) const;
    int Test(unsigned char const& value) const;
    int Test(short const& value) const;
    int Test(unsigned short const& value) const;
    int Test(int const& value) const;
    int Test(unsigned int const& value) const;
    int Test(long const& value) const;
    int Test(unsigned long const& value) const;
    int Test(float const& value) const;
    int Test(double const& value) const;
    int Test(qzString const& value) const;
    int Test(qzTCouple<double> const& value) const;
    int Test(qzTCouple<float> const& value) const;
    int Test(qzTCouple<int> const& value) const;
    int Test(qzTTriple<double> const& value) const;
    int Test(qzTTriple<float> const& value) const;
    int Test(qzTTriple<int> const& value) const;
    int Test(qzTMatrix33<double> const& value) const;
    int Test(qzTMatrix44<double> const& value) const;
    int Test(Color const& value) const;
    int Test(EntityFullType const& value) const;
    int Test(Qualifier const& value) const;
    template <class T>
    int Test(T* value) const = delete;
    /// Tests every element of a value by its own type, while an EnforceGenericTestSentinel lives. What is no
    /// allowable type passes.
    int Test(Value const& value) const;

    /// Whether another constraint's list is part of this one's: 0 when it is, -1 when a value is missing
    /// here, 1 when either has no list or an empty one, 2 when the types differ.
    int ValidSubset(Allowables const& other) const;

    /// Why a test gave something else than 0 last, or what was set since. Bounds are explained when there are
    /// one or two that state a range.
    qzString GetFailureMessage() const;
    void SetFailureMessage(qzString const& message);

    /// Always false: constraints are read from text and never written.
    bool GetAsString([[maybe_unused]] qzString& text) const { return false; }

private:
    static bool P_IsGenericTestEnforced();

    AllowablesData* m_data = nullptr;
};

} // namespace qzDescriptor
