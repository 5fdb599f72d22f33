#pragma once

#include "descriptor/DataTypes.h"
#include "descriptor/Export.h"
#include "descriptor/Forward.h"
#include "descriptor/Value.h"
#include "descriptor/qzReturnStatus.h"
#include "qzutl/qzPrefetch.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace qzDescriptor {

/// A type of single elements, or of lists, bags and tables, that values hold.
template <class T>
concept ValueElement = requires(ValuePtr const& holder, T& element) {
    holder.GetValue(element, 0u, 0u);
};
template <class T>
concept ValueContainer = requires(ValuePtr const& holder, T& container) {
    holder.GetValue(container);
};
template <class T>
concept ValueType = ValueElement<T> || ValueContainer<T>;
/// A number, which is written in place.
template <class T>
concept ValueNumber = ValueElement<T> &&(s_scalarType<T> != BT_NONE);

/// The attribute values of one object, by their index in its member set (the attribute handle minus one).
///
///     Content* const plate = Content::Create(members);      // every attribute reads as its default
///     plate->SetValue(0, 2.5);                              // status 0
///     plate->SetValue(0, -1.0).message;                     // "Input of -1 violates: VALUE > 0"
///     double thickness = 0;
///     plate->GetValue(0, thickness);                        // true, 2.5
///     plate->Destroy();
///
/// Only what was set takes room: an object at its defaults is a few words. What a user sets is checked
/// against the attribute's definition, whose type never changes by setting; nothing is converted. Whether an
/// attribute is editable is for user interfaces to mind.
///
/// A content refers to its member set, which has to outlive it. Attributes that the set gains later
/// behind those it has are there at once; one that is put between them moves the values of those behind. Not
/// synchronised; threads may use contents of one member set while the set does not change.
class QZDESCRIPTOR_API Content {
public:
    /// What an attribute is to those who show or walk it.
    enum AttributeType : std::int32_t {
        ATTRIBUTE_NONE = 0,      ///< there is no such attribute
        ATTRIBUTE_VALUE = 1,     ///< data of its own: elements, lists of them, formulas
        ATTRIBUTE_ENTITY = 2,    ///< references to other objects, single ones, lists or bags
        ATTRIBUTE_TABULAR = 3,   ///< a table
        ATTRIBUTE_OPERATIONS = 4 ///< no value (its type is BT_NONE or CT_NONE): a place for a menu
    };

    /// Who wins where two contents that are merged both have an attribute set. What only one has set is taken
    /// or stays under every rule.
    enum AppendRule : std::int32_t {
        APPEND_KEEP = 0,    ///< this one
        APPEND_REPLACE = 1, ///< the other one
        /// Lists and tables get the other's elements and rows behind their own, bags are united; of formulas
        /// for one type and of single elements this one's stay.
        APPEND_EXTEND = 2,
        APPEND_FAIL = 3 ///< nobody: unless their values are equal, nothing is merged at all
    };

    /// A content that ends with Destroy; null for no members.
    static Content* Create(Members const* members);

    Content& operator=(Content const&) = delete;
    virtual ~Content();

    /// The same values, definitions, menus and display statuses over the same member set.
    virtual Content* Clone() const = 0;
    virtual void Destroy() = 0;

    virtual Members const* GetMembers() const = 0;
    virtual unsigned int GetCount() const = 0;
    virtual AttributeType GetAttributeType(unsigned int index) const = 0;

    // Reading: the value that is set, else the default. False, leaving the argument as it was, for attributes
    // that do not exist or have no value, and for another type.

    /// The value itself, valid until the attribute changes.
    virtual bool GetValue(unsigned int index, ValuePtr const*& value) const = 0;
    bool GetValue(unsigned int index, Value& value) const;
    template <ValueType T>
    bool GetValue(unsigned int index, T& value) const {
        ValuePtr const* const holder = FindValue(index);
        return holder != nullptr && Read(holder, value);
    }
    /// What is set, found without a virtual call. Null for an attribute at its default, and for every one of
    /// contents that keep their values otherwise.
    ValuePtr const* FindOwnValue(unsigned int index) const { return P_FindOwn(index); }
    /// The value itself as above, null where there is none.
    ValuePtr const* FindValue(unsigned int index) const {
        ValuePtr const* holder = FindOwnValue(index);
        if (holder == nullptr)
            GetValue(index, holder);
        return holder;
    }
    /// The default, whatever is set; null where there is no value. Valid until the definition is replaced.
    virtual ValuePtr const* GetDefaultValue(unsigned int index) const = 0;
    virtual bool IsSet(unsigned int index) const = 0;
    /// Not set, or set to what equals the default.
    virtual bool IsAtDefault(unsigned int index) const = 0;
    /// As Value::GetValueAsString.
    virtual bool GetValueAsString(unsigned int index, qzString& out, char const* format = nullptr,
                                  unsigned int i = ValuePtr::s_wholeValue,
                                  unsigned int j = ValuePtr::s_wholeValue) const = 0;

    // Writing. A value of another type or array dimension, or with an element that the attribute's allowables
    // refuse (the default is never refused), changes nothing, and the message says why.

    virtual qzReturnStatus SetValue(unsigned int index, Value const& value) = 0;
    virtual qzReturnStatus SetValue(unsigned int index, Value&& value) = 0;
    template <ValueType T>
    qzReturnStatus SetValue(unsigned int index, T const& value) {
        if constexpr (ValueNumber<T>) {
            if (TrySetValue(index, value))
                return qzReturnStatus();
        }
        return SetValue(index, MakeValue(value));
    }
    /// The fast road for numbers: SetValue without a message.
    template <ValueNumber T>
    bool TrySetValue(unsigned int index, T const& value) {
        return P_TrySet(index, value);
    }
    /// What SetValue would answer.
    virtual qzReturnStatus TestValue(unsigned int index, Value const& value) const = 0;
    template <ValueType T>
    qzReturnStatus TestValue(unsigned int index, T const& value) const {
        return TestValue(index, MakeValue(value));
    }
    /// Reads element (i, j) from text into a copy of the value, and sets that.
    virtual qzReturnStatus SetValueFromString(unsigned int index, qzString const& text,
                                              char const* format = nullptr, unsigned int i = 0,
                                              unsigned int j = 0) = 0;
    /// Takes the value as it is, without a check: for what is known to be right, such as data that are read
    /// back. An empty value resets. False when there is no such attribute.
    virtual bool SetValueUnchecked(unsigned int index, Value&& value) = 0;
    /// The value itself to be changed in place, without a check; it is set from now on. Null where there is
    /// no value. Valid until the attribute changes by other ways.
    virtual ValuePtr* ModifyValue(unsigned int index) = 0;
    /// Back to the default. False when there is no such attribute.
    virtual bool Reset(unsigned int index) = 0;
    /// Every attribute back to its default; definitions, menus and display statuses stay.
    virtual void ClearAll() = 0;

    /// Merges the values that are set in another content, attributes being found by their identifiers when
    /// the member sets differ; those that this member set has not are passed over. All of it or nothing: a
    /// value that is refused, or in conflict, is named and nothing changes. Definitions and menus stay what
    /// they are.
    virtual qzReturnStatus Append(Content const& other, AppendRule rule) = 0;

    // What an attribute is in this object. The definitions of the member set, which all objects share, are
    // never touched.

    /// The definition that holds for this object; null when there is no such attribute.
    virtual Definition const* GetDefinition(unsigned int index) const = 0;
    /// The allowables of that definition; null ones when there is no such attribute.
    Allowables const& GetAllowables(unsigned int index) const;
    /// Makes another definition hold for this object, and its default with it. A value that it refuses is
    /// reset; a value that is merely not allowed stays where the definition has no default. False for no
    /// definition or attribute.
    virtual bool ReplaceDefinition(unsigned int index, std::shared_ptr<Definition const> definition) = 0;
    /// As ReplaceDefinition with other allowables in the definition that holds now.
    bool SetAllowables(unsigned int index, Allowables const& allowables);
    /// The member set's definitions hold again, as ReplaceDefinition says.
    virtual bool RestoreDefinition(unsigned int index) = 0;

    /// The columns of a table; null for what is none, and for a table whose columns nothing defines.
    virtual TabularDefinition const* GetTabularDefinition(unsigned int index) const = 0;
    /// Keeps a copy for this content, one for equal definitions with equal flags, which lasts as long as the
    /// content.
    virtual TabularDefinition const*
    RegisterManagedTabularDefinition(TabularDefinition const& definition) = 0;
    /// Makes other columns hold for a table of this object. The definition is registered unless it is; rows
    /// that the table has stay as they are. False for no definition and for what is no table.
    virtual bool ReplaceDefinition(unsigned int index, TabularDefinition const* definition) = 0;

    /// The menu of operations on an attribute's data; an empty one where none was set.
    virtual DataOperationList const& GetDataOperationList(unsigned int index) const = 0;
    virtual bool SetDataOperationList(unsigned int index, DataOperationList const& operations) = 0;

    /// How the attribute is to be shown: what was set, else the definition's default status. Setting a value
    /// leaves it, unless the value brings a status other than DS_DEFAULT.
    virtual DisplayStatus GetDisplayStatus(unsigned int index) const = 0;
    /// DS_DEFAULT gives it back to the definition.
    virtual bool SetDisplayStatus(unsigned int index, DisplayStatus status) = 0;

    // For those who read an attribute of many objects, one after the other. Where a value lies is known only
    // when the array of values has come from memory, so ask for the array first and for the value a few
    // objects later. This changes nothing but the time that reading takes.
    void PrefetchValues() const { qzPrefetch(m_own); }
    void PrefetchValue(unsigned int index) const { qzPrefetch(FindOwnValue(index)); }

    /// Bytes that the object occupies, without what it shares with others.
    virtual std::size_t GetMemoryUsage() const = 0;

    /// Equal identifiers in the same places with equal values, defaults included; display statuses,
    /// definitions and menus take no part.
    QZDESCRIPTOR_API friend bool operator==(Content const& a, Content const& b);

    /// Copies what a holder, or null, holds when it is of the type: a single element, or a whole container.
    template <ValueType T>
    static bool Read(ValuePtr const* holder, T& value) {
        if (holder == nullptr)
            return false;
        if constexpr (ValueNumber<T>) {
            if (ScalarStorage<T> const* const scalar = ScalarStorage<T>::Of(holder)) {
                value = scalar->m_value;
                return true;
            }
        }
        if constexpr (ValueElement<T>)
            return holder->GetArrayDimension() == 0 && holder->GetValue(value, 0, 0);
        else
            return holder->GetValue(value);
    }
    /// A value that holds an element or a container.
    template <ValueType T>
    static Value MakeValue(T const& data) {
        return P_ToValue(data);
    }

protected:
    Content() = default;
    Content(Content const&) noexcept {} // values are copied by who keeps them

private:
    friend class ContentPrivate;

    ValuePtr* P_FindOwn(unsigned int index) const { return index < m_reach ? m_own[index] : nullptr; }

    virtual bool P_TrySet(unsigned int index, bool const& value) = 0;
    virtual bool P_TrySet(unsigned int index, char const& value) = 0;
    virtual bool P_TrySet(unsigned int index, unsigned char const& value) = 0;
    virtual bool P_TrySet(unsigned int index, int const& value) = 0;
    virtual bool P_TrySet(unsigned int index, unsigned int const& value) = 0;
    virtual bool P_TrySet(unsigned int index, short const& value) = 0;
    virtual bool P_TrySet(unsigned int index, unsigned short const& value) = 0;
    virtual bool P_TrySet(unsigned int index, long const& value) = 0;
    virtual bool P_TrySet(unsigned int index, unsigned long const& value) = 0;
    virtual bool P_TrySet(unsigned int index, float const& value) = 0;
    virtual bool P_TrySet(unsigned int index, double const& value) = 0;

    // A value that holds the data. Values have no road of their own from bags and tables.
    template <class T>
    static Value P_ToValue(T const& data) {
        if constexpr (ValueElement<T>) {
            Value value;
            value.SetValue(data);
            return value;
        } else {
            return Value(ValuePtr::Create(T(data), DS_DEFAULT));
        }
    }
    static Value P_ToValue(FormulaBag const& bag);
    static Value P_ToValue(EntityListBag const& bag);
    static Value P_ToValue(EntityListBagList const& bags);
    static Value P_ToValue(Tabular const& table);

    ValuePtr** m_own = nullptr; // what was set, by index, in an array that reaches no further than needed
    unsigned int m_reach = 0;   // the length of the array
};

} // namespace qzDescriptor
