#pragma once

#include "handles.h"

#include "store/Registry.h"

namespace qzPython {

/// A registry made in Python: where its class says so, what C++ asks it is answered there. An answer that
/// fails is reported, and given as C++ would by itself.
class PythonRegistry final : public store::Registry {
public:
    PythonRegistry(RegistryHandle const& handle, bool isDerived) : m_handle(handle), m_isDerived(isDerived) {}

    bool SetOwnership(unsigned int child, unsigned int owner, unsigned int ownerAttribute) override;
    EntityFullType RegisterMetaclass(unsigned int metaclass) const override;
    bool CheckParent(unsigned int metaclass, unsigned int ancestor) const override;
    bool GetOwnership(unsigned int child, unsigned int owner,
                      qzStlVector<unsigned int>& ownerAttributes) const override;
    bool GetOwnership(unsigned int child,
                      std::map<unsigned int, qzStlVector<unsigned int>>& owners) const override;
    bool GetEntityFullTypeFromMetaclass(qzString const& name, EntityFullType& type) const override;
    bool GetEntityFullTypeFromMetaclass(unsigned int metaclass, EntityFullType& type) const override;
    bool GetRegisteredEntityFullTypes(qzStlVector<EntityFullType>& types) const override;
    bool GetMetaclass(EntityFullType type, qzString& name) const override;
    unsigned int GetMetaclassHandle(EntityFullType type) const override;
    Identifier GetNamedIdentifier(EntityFullType type, Identifier identifier) const override;
    ISession* CreateSession(qzString const& name) override;

    RegistryHandle const& GetHandle() const { return m_handle; }
    /// Whether a method of the class is asked, for somebody who is amid what a session keeps.
    bool IsAsked() const { return m_asks > 0; }

private:
    /// As AskOverride.
    template <class Take, class... Argument>
    bool P_Ask(char const* name, Take&& take, Argument const&... arguments) const;

    RegistryHandle const& m_handle;
    mutable unsigned int m_asks = 0;
    bool m_isDerived; // otherwise nobody has to wait for the interpreter to be asked
};

/// A registry that is one of Python's, unless it is just ending.
std::optional<Kept> HoldRegistry(MetaclassMgr const* registry);
/// Throws Refused while a registry is asked, when nothing of its sessions may end.
void CheckUnasked(MetaclassMgr const* registry);
/// A metaclass by its handle or its name; raises KeyError for a name that is none.
unsigned int ToMetaclass(MetaclassMgr const& registry, py::handle metaclass);
/// An attribute by its handle or its identifier; 0 when there is none.
unsigned int ToAttribute(MetaclassMgr const& registry, unsigned int metaclass, py::handle attribute,
                         unsigned int config);

} // namespace qzPython
