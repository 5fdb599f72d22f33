#pragma once

#include "descriptor/qzdescriptor.h"

#ifdef QZ_HAVE_QT
#    include <QMetaProperty>
#    include <QObject>
#endif
#ifdef QZ_HAVE_GLIB
#    include <glib-object.h>
#endif
#ifdef QZ_HAVE_RTTR
#    include <rttr/registration.h>
#    include <rttr/type.h>
#endif

// A class of twelve numbers. Find answers whether there is one of a name.

inline char const* const s_attributes[] = {"area",    "damping",  "density", "elasticity",
                                           "inertia", "length",   "margin",  "material",
                                           "offset",  "rotation", "shear",   "thickness"};

class Registry : public qzDescriptor::MetaclassMgr {
    qzDescriptor::ISession* CreateSession(qzString const&) override { return nullptr; }
};

class OursBar {
public:
    using Key = qzDescriptor::Identifier;

    OursBar() {
        using namespace qzDescriptor;
        m_bar = m_registry.Insert("Bar", Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
        for (char const* const name : s_attributes)
            m_registry.InsertAttribute(m_bar, Identifier(name), Definition(), Identifier(), {});
    }
    bool Find(Key const& key) const { return m_registry.FindAttributeHandle(m_bar, key, 0, false) != 0; }
    bool Get(unsigned int place) const { return m_registry.GetDefinition(m_bar, place + 1, 0) != nullptr; }

private:
    Registry m_registry;
    unsigned int m_bar = 0;
};

/// What a class of a peer's user looks like.
struct Bar {
    double area = 0, damping = 0, density = 0, elasticity = 0, inertia = 0, length = 0, margin = 0,
           material = 0, offset = 0, rotation = 0, shear = 0, thickness = 0;
};

#ifdef QZ_HAVE_QT
class QtBarObject : public QObject, public Bar {
    Q_OBJECT
    Q_PROPERTY(double area MEMBER area)
    Q_PROPERTY(double damping MEMBER damping)
    Q_PROPERTY(double density MEMBER density)
    Q_PROPERTY(double elasticity MEMBER elasticity)
    Q_PROPERTY(double inertia MEMBER inertia)
    Q_PROPERTY(double length MEMBER length)
    Q_PROPERTY(double margin MEMBER margin)
    Q_PROPERTY(double material MEMBER material)
    Q_PROPERTY(double offset MEMBER offset)
    Q_PROPERTY(double rotation MEMBER rotation)
    Q_PROPERTY(double shear MEMBER shear)
    Q_PROPERTY(double thickness MEMBER thickness)
};

class QtBar {
public:
    using Key = char const*;

    bool Find(Key key) const { return m_class.indexOfProperty(key) >= 0; }
    bool Get(unsigned int place) const {
        return m_class.property(m_class.propertyOffset() + static_cast<int>(place)).isValid();
    }

private:
    QMetaObject const& m_class = QtBarObject::staticMetaObject;
};
#endif

#ifdef QZ_HAVE_RTTR
class RttrBar {
public:
    using Key = char const*;

    bool Find(Key key) const { return m_class.get_property(key).is_valid(); }

private:
    rttr::type m_class = rttr::type::get<Bar>();
};

RTTR_REGISTRATION {
    rttr::registration::class_<Bar>("Bar")
        .property("area", &Bar::area)
        .property("damping", &Bar::damping)
        .property("density", &Bar::density)
        .property("elasticity", &Bar::elasticity)
        .property("inertia", &Bar::inertia)
        .property("length", &Bar::length)
        .property("margin", &Bar::margin)
        .property("material", &Bar::material)
        .property("offset", &Bar::offset)
        .property("rotation", &Bar::rotation)
        .property("shear", &Bar::shear)
        .property("thickness", &Bar::thickness);
}
#endif

#ifdef QZ_HAVE_GLIB
class GLibBar {
public:
    using Key = char const*;

    GLibBar() : m_class(G_OBJECT_CLASS(g_type_class_ref(RegisteredType()))) {}
    GLibBar(GLibBar const&) = delete;
    GLibBar& operator=(GLibBar const&) = delete;
    ~GLibBar() { g_type_class_unref(m_class); }

    bool Find(Key key) const { return g_object_class_find_property(m_class, key) != nullptr; }

private:
    static void Initialise(void* gobjectClass, void*) {
        auto* const object = G_OBJECT_CLASS(gobjectClass);
        object->set_property = [](GObject*, unsigned int, GValue const*, GParamSpec*) {};
        object->get_property = [](GObject*, unsigned int, GValue*, GParamSpec*) {};
        unsigned int id = 0;
        for (char const* const name : s_attributes)
            g_object_class_install_property(
                object, ++id, g_param_spec_double(name, nullptr, nullptr, 0, 1, 0, G_PARAM_READWRITE));
    }
    static GType RegisteredType() {
        static GType const s_type =
            g_type_register_static_simple(G_TYPE_OBJECT, "QzBar", sizeof(GObjectClass), Initialise,
                                          sizeof(GObject), nullptr, static_cast<GTypeFlags>(0));
        return s_type;
    }

    GObjectClass* m_class;
};
#endif
