#include "descriptor/Allowables.h"

#include "definitions/allowables/families.h"

#include <atomic>

namespace qzDescriptor {

namespace {

std::atomic<bool> s_genericTest{false};

} // namespace

Allowables::EnforceGenericTestSentinel::EnforceGenericTestSentinel() {
    s_genericTest.store(true, std::memory_order_relaxed);
}

Allowables::EnforceGenericTestSentinel::~EnforceGenericTestSentinel() {
    s_genericTest.store(false, std::memory_order_relaxed);
}

bool Allowables::P_IsGenericTestEnforced() { return s_genericTest.load(std::memory_order_relaxed); }

// The handle asks its data and answers for those that have none. What may run out of memory is an attempt.

#define QZ_FORWARD(T)                                                                                        \
    Allowables::Allowables(T const& defaultValue)                                                            \
        : m_data(MakeAllowables<DefaultAllowables<T>>(defaultValue)) {}                                      \
    Allowables::Allowables(List<T> const& list, unsigned int defaultIndex)                                   \
        : m_data(MakeAllowables<ListAllowables<T>>(list, defaultIndex)) {}                                   \
    bool Allowables::GetDefault(T& value) const {                                                            \
        return m_data != nullptr && Attempt([&] { return m_data->GetDefault(value); });                      \
    }                                                                                                        \
    bool Allowables::GetList(List<T>& list, unsigned int& defaultIndex) const {                              \
        return m_data != nullptr && Attempt([&] { return m_data->GetList(list, defaultIndex); });            \
    }                                                                                                        \
    bool Allowables::GetValueList(qzStlVector<T>& values, unsigned int& defaultIndex) const {                \
        return m_data != nullptr && Attempt([&] { return m_data->GetValueList(values, defaultIndex); });     \
    }                                                                                                        \
    Allowables& Allowables::AddToList(T const& value, qzString const& name) {                                \
        if (m_data != nullptr)                                                                               \
            Attempt([&] { m_data->AddToList(value, name); });                                                \
        return *this;                                                                                        \
    }                                                                                                        \
    int Allowables::Test(T const& value) const { return m_data != nullptr ? m_data->Test(value) : 0; }
QZ_ALLOWABLE_TYPES(QZ_FORWARD)
#undef QZ_FORWARD

#define QZ_FORWARD_BOUNDS(T)                                                                                 \
    Allowables::Allowables(BoundT<T> const& bound, T defaultValue)                                           \
        : Allowables(qzStlVector<BoundT<T>>{bound}, defaultValue) {}                                         \
    Allowables::Allowables(qzStlVector<BoundT<T>> const& bounds, T defaultValue)                             \
        : m_data(MakeAllowables<BoundsAllowables<T>>(bounds, defaultValue)) {}                               \
    bool Allowables::GetBounds(qzStlVector<BoundT<T>>& bounds) const {                                       \
        return m_data != nullptr && Attempt([&] { return m_data->GetBounds(bounds); });                      \
    }
QZ_ALLOWABLE_NUMBERS(QZ_FORWARD_BOUNDS)
#undef QZ_FORWARD_BOUNDS

Allowables::Allowables(Allowables const& other)
    : m_data(other.m_data != nullptr ? other.m_data->Clone() : nullptr) {}

Allowables::~Allowables() { delete m_data; }

Allowables& Allowables::operator=(Allowables const& other) {
    if (this != &other)
        *this = Allowables(other);
    return *this;
}

Allowables& Allowables::operator=(Allowables&& other) noexcept {
    if (this != &other)
        delete std::exchange(m_data, std::exchange(other.m_data, nullptr));
    return *this;
}

bool operator==(Allowables const& a, Allowables const& b) {
    if (a.m_data == nullptr || b.m_data == nullptr)
        return a.m_data == b.m_data;
    return a.m_data->Equals(*b.m_data);
}

bool Allowables::Copy(Allowables const& other, bool takeAllowed, bool takeDefault) {
    return m_data != nullptr && other.m_data != nullptr &&
           Attempt([&] { return m_data->Copy(*other.m_data, takeAllowed, takeDefault); });
}

BasicType Allowables::GetBasicType() const { return m_data != nullptr ? m_data->GetBasicType() : BT_NONE; }

CompoundType Allowables::GetCompoundType() const {
    return m_data != nullptr ? m_data->GetCompoundType() : CT_NONE;
}

bool Allowables::Enforceable() const { return m_data != nullptr && m_data->Enforceable(); }

bool Allowables::HaveBounds() const { return m_data != nullptr && m_data->HaveBounds(); }

void Allowables::SetDefaultIdx(unsigned int index) {
    if (m_data != nullptr)
        m_data->SetDefaultIdx(index);
}

bool Allowables::GetOperateOnExtra() const { return m_data != nullptr && m_data->GetOperateOnExtra(); }

int Allowables::SetOperateOnExtra(bool extra) {
    return m_data != nullptr ? m_data->SetOperateOnExtra(extra) : 0;
}

bool Allowables::HaveList() const { return m_data != nullptr && m_data->HaveList(); }

unsigned int Allowables::GetListCount() const { return m_data != nullptr ? m_data->GetListCount() : 0; }

bool Allowables::GetNameList(qzStlVector<qzString>& names, unsigned int& defaultIndex) const {
    return m_data != nullptr && Attempt([&] { return m_data->GetNameList(names, defaultIndex); });
}

bool Allowables::RemoveFromList(unsigned int index) {
    return m_data != nullptr && Attempt([&] { return m_data->RemoveFromList(index); });
}

bool Allowables::SetListItemName(unsigned int index, qzString const& name) {
    return m_data != nullptr && Attempt([&] { return m_data->SetListItemName(index, name); });
}

qzString Allowables::GetListItemName(unsigned int index) const {
    return m_data != nullptr ? Attempt([&] { return m_data->GetListItemName(index); }) : qzString();
}

bool Allowables::AddSubType(EntityFullType const& type, SubType kind, qzString const& name) {
    return m_data != nullptr && Attempt([&] { return m_data->AddSubType(type, kind, name); });
}

bool Allowables::RemoveSubType(EntityFullType const& type, SubType kind, qzString const& name) {
    return m_data != nullptr && Attempt([&] { return m_data->RemoveSubType(type, kind, name); });
}

unsigned int Allowables::GetSubTypeCount(EntityFullType const& type, SubType kind) const {
    return m_data != nullptr ? m_data->GetSubTypeCount(type, kind) : 0;
}

bool Allowables::GetSubTypeName(EntityFullType const& type, SubType kind, unsigned int index,
                                qzString& name) const {
    return m_data != nullptr && Attempt([&] { return m_data->GetSubTypeName(type, kind, index, name); });
}

int Allowables::ValidSubset(Allowables const& other) const {
    if (m_data == nullptr)
        return 0;
    if (other.m_data == nullptr) // has no list
        return m_data->HaveList() ? 1 : 0;
    return m_data->ValidSubset(*other.m_data);
}

qzString Allowables::GetFailureMessage() const {
    return m_data != nullptr ? Attempt([&] { return m_data->GetFailureMessage(); }) : qzString();
}

void Allowables::SetFailureMessage(qzString const& message) {
    if (m_data != nullptr)
        Attempt([&] { m_data->SetFailureMessage(message); });
}

} // namespace qzDescriptor
