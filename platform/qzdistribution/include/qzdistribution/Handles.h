#pragma once

/// The name of a thing in the store of tables outside memory, as a plain value. The generation tells one
/// opening of a database from every other of this process, the index one thing within it from every other: a
/// handle whose thing is gone is recognised and never names another one. An index of all ones, as in every
/// default-made handle, names nothing.
template <class Kind>
class qzdtHandle {
public:
    constexpr qzdtHandle() noexcept = default;
    constexpr qzdtHandle(unsigned int generation, unsigned int index) noexcept
        : m_generation(generation), m_index(index) {}

    /// Says only that the handle once named something; whether it still does, QZ_DT_Mgr knows.
    constexpr bool IsValid() const noexcept { return m_index != 0xFFFFFFFF; }
    constexpr unsigned int GetGeneration() const noexcept { return m_generation; }
    constexpr unsigned int GetIndex() const noexcept { return m_index; }

    friend constexpr bool operator==(qzdtHandle const&, qzdtHandle const&) = default;

private:
    unsigned int m_generation = 0;
    unsigned int m_index = 0xFFFFFFFF;
};

/// A database: an open file or one in memory.
class QZDT_DBHandle : public qzdtHandle<QZDT_DBHandle> {
public:
    using qzdtHandle::qzdtHandle;
};

/// A set of tables in a database.
class QZDT_DTSHandle : public qzdtHandle<QZDT_DTSHandle> {
public:
    using qzdtHandle::qzdtHandle;
};

/// One table of a set.
class QZDT_TableHandle : public qzdtHandle<QZDT_TableHandle> {
public:
    using qzdtHandle::qzdtHandle;
};
