#pragma once

#include "handles.h"

#include "descriptor/Content.h"
#include "descriptor/Members.h"

#include <memory>

namespace qzPython {

/// `Members` in Python: a member set of a registry, which it keeps where it can.
class MembersRef {
public:
    MembersRef(py::object registry, Members const& members)
        : m_registry(std::move(registry)), m_members(&members) {}

    /// Throws Ended.
    Members const& Get() const {
        m_registry.cast<RegistryHandle const&>().Get();
        return *m_members;
    }

    friend bool operator==(MembersRef const& a, MembersRef const& b) { return a.m_members == b.m_members; }

private:
    py::object m_registry;
    Members const* m_members;
};

/// `Content` in Python: values without an object.
class ContentRef {
public:
    explicit ContentRef(MembersRef members) : ContentRef(members, Content::Create(&members.Get())) {}
    /// Takes the content over.
    ContentRef(MembersRef members, Content* content)
        : m_members(std::move(members)), m_content(content, [](Content* held) { held->Destroy(); }) {}

    /// Throws Ended.
    Content& Get() const {
        m_members.Get();
        return *m_content;
    }
    MembersRef const& GetMembers() const { return m_members; }
    ContentRef Clone() const { return ContentRef(m_members, Get().Clone()); }

    friend bool operator==(ContentRef const& a, ContentRef const& b) { return a.m_content == b.m_content; }

private:
    MembersRef m_members;
    std::shared_ptr<Content> m_content;
};

} // namespace qzPython
