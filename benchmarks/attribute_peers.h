#pragma once

#include "constraint_peers.h"

#include <memory>

// Objects whose number is written by index or by name, found anew at every write. Their numbers and bounds
// are those of the constraint's peers.

/// An object's content over a member set with a dozen attributes; the number is the last one.
class OursPlate {
public:
    OursPlate() {
        using namespace qzDescriptor;
        using Bound = BoundT<double>;
        Definition definition;
        definition.SetValueBasicType(BT_DOUBLE);
        definition.SetAllowables(Allowables({Bound(0, Bound::Greater), Bound(10, Bound::Less)}, 1.0));
        for (int k = 0; k < 11; ++k)
            P_Insert("attribute " + std::to_string(k), definition);
        m_index = P_Insert("thickness", definition);
    }
    OursPlate(OursPlate const&) = delete;
    OursPlate& operator=(OursPlate const&) = delete;
    ~OursPlate() {
        m_content->Destroy();
        m_members->Destroy();
    }

    double Read() const {
        double number = 0;
        m_content->GetValue(m_index, number);
        return number;
    }
    unsigned int Find(qzDescriptor::Identifier const& identifier) const {
        return m_members->FindVariableIndexFromIdentifier(identifier, 0, false);
    }

protected:
    unsigned int P_Insert(qzString const& name, qzDescriptor::Definition const& definition) {
        using namespace qzDescriptor;
        return m_members->InsertVariable(Identifier(name), definition, Identifier(), false, Members::s_none,
                                         "", {});
    }

    qzDescriptor::Members* m_members = qzDescriptor::Members::Create("Plate");
    qzDescriptor::Content* m_content = qzDescriptor::Content::Create(m_members);
    unsigned int m_index = 0;
};

struct OursByIndex : OursPlate {
    bool Write(double number) { return m_content->TrySetValue(m_index, number); }
};

/// With the words for a refusal.
struct OursByIndexExplained : OursPlate {
    bool Write(double number) { return m_content->SetValue(m_index, number).status == 0; }
};

struct OursByName : OursPlate {
    bool Write(double number) { return m_content->TrySetValue(Find(m_name), number); }
    qzDescriptor::Identifier m_name{"thickness"};
};

#ifdef QZ_HAVE_QT
class QtByName {
public:
    bool Write(double number) { return m_plate.setProperty("thickness", number) && m_plate.IsWritten(); }
    double Read() const { return m_plate.property("thickness").toDouble(); }

private:
    QtPlate m_plate;
};
#endif

#ifdef QZ_HAVE_RTTR
class RttrByName {
public:
    bool Write(double number) {
        return rttr::type::get<Plate>().set_property_value("thickness", m_plate, number) &&
               m_plate.GetThickness() == number;
    }
    double Read() const { return m_plate.GetThickness(); }

private:
    Plate m_plate;
};
#endif

#ifdef QZ_HAVE_GLIB
/// An object of the type system. A number that its bounds refuse is answered with a warning on the terminal,
/// which is no peer to measure, so that only accepted writes are.
class GLibByName {
public:
    GLibByName() = default;
    GLibByName(GLibByName const&) = delete;
    GLibByName& operator=(GLibByName const&) = delete;
    ~GLibByName() { g_object_unref(m_plate); }

    bool Write(double number) {
        g_object_set(m_plate, "thickness", number, nullptr);
        return true;
    }
    double Read() const { return m_plate->thickness; }

private:
    struct PlateObject {
        GObject base;
        double thickness;
    };

    static void Initialise(void* gobjectClass, void*) {
        auto* const object = G_OBJECT_CLASS(gobjectClass);
        object->set_property = [](GObject* plate, unsigned int, GValue const* value, GParamSpec*) {
            reinterpret_cast<PlateObject*>(plate)->thickness = g_value_get_double(value);
        };
        g_object_class_install_property(
            object, 1,
            g_param_spec_double("thickness", nullptr, nullptr, 1e-300, 9.999999999, 1.0, G_PARAM_WRITABLE));
    }
    static GType RegisteredType() {
        static GType const s_type =
            g_type_register_static_simple(G_TYPE_OBJECT, "QzPlate", sizeof(GObjectClass), Initialise,
                                          sizeof(PlateObject), nullptr, static_cast<GTypeFlags>(0));
        return s_type;
    }

    PlateObject* m_plate = static_cast<PlateObject*>(g_object_new(RegisteredType(), nullptr));
};
#endif
