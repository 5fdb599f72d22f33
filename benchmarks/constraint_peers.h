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

// A number from 0 to 10, both excluded, that is 1 at first. Write is false, and changes nothing, for others.

class OursBounded {
public:
    bool Write(double number) {
        if (m_allowables.Test(number) != 0)
            return false;
        m_value.SetValue(number);
        return true;
    }
    double Read() const {
        double number = 0;
        m_value.GetValue(number);
        return number;
    }
    qzString Explain() const { return m_allowables.GetFailureMessage(); }

private:
    using Bound = qzDescriptor::BoundT<double>;

    qzDescriptor::Allowables m_allowables{{Bound(0, Bound::Greater), Bound(10, Bound::Less)}, 1.0};
    qzDescriptor::Value m_value{1.0};
};

/// What a class of a peer's user looks like.
class Plate {
public:
    double GetThickness() const { return m_thickness; }
    bool SetThickness(double thickness) {
        if (!(thickness > 0 && thickness < 10))
            return false;
        m_thickness = thickness;
        return true;
    }

private:
    double m_thickness = 1.0;
};

#ifdef QZ_HAVE_QT
class QtPlate : public QObject {
    Q_OBJECT
    Q_PROPERTY(double thickness READ GetThickness WRITE SetThickness)

public:
    double GetThickness() const { return m_plate.GetThickness(); }
    void SetThickness(double thickness) { m_isWritten = m_plate.SetThickness(thickness); }
    bool IsWritten() const { return m_isWritten; }

private:
    Plate m_plate;
    bool m_isWritten = false;
};

class QtBounded {
public:
    bool Write(double number) { return m_property.write(&m_plate, number) && m_plate.IsWritten(); }
    double Read() const { return m_property.read(&m_plate).toDouble(); }

private:
    QtPlate m_plate;
    QMetaProperty m_property =
        QtPlate::staticMetaObject.property(QtPlate::staticMetaObject.indexOfProperty("thickness"));
};
#endif

#ifdef QZ_HAVE_RTTR
class RttrBounded {
public:
    bool Write(double number) {
        return m_property.set_value(m_plate, number) && m_plate.GetThickness() == number;
    }
    double Read() const { return m_plate.GetThickness(); }

private:
    Plate m_plate;
    rttr::property m_property = rttr::type::get<Plate>().get_property("thickness");
};

RTTR_REGISTRATION {
    rttr::registration::class_<Plate>("Plate").property("thickness", &Plate::GetThickness,
                                                        &Plate::SetThickness);
}
#endif

#ifdef QZ_HAVE_GLIB
/// A parameter specification clamps what it refuses and says so.
class GLibBounded {
public:
    GLibBounded() {
        g_param_spec_ref_sink(m_spec);
        g_value_init(&m_stored, G_TYPE_DOUBLE);
        g_value_init(&m_candidate, G_TYPE_DOUBLE);
        g_value_set_double(&m_stored, 1.0);
    }
    GLibBounded(GLibBounded const&) = delete;
    GLibBounded& operator=(GLibBounded const&) = delete;
    ~GLibBounded() {
        g_value_unset(&m_stored);
        g_value_unset(&m_candidate);
        g_param_spec_unref(m_spec);
    }

    bool Write(double number) {
        g_value_set_double(&m_candidate, number);
        if (g_param_value_validate(m_spec, &m_candidate))
            return false;
        g_value_copy(&m_candidate, &m_stored);
        return true;
    }
    double Read() const { return g_value_get_double(&m_stored); }

private:
    GParamSpec* m_spec =
        g_param_spec_double("thickness", nullptr, nullptr, 1e-300, 9.999999999, 1.0, G_PARAM_READWRITE);
    GValue m_stored = G_VALUE_INIT;
    GValue m_candidate = G_VALUE_INIT;
};
#endif
