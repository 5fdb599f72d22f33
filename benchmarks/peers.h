#pragma once

#include "descriptor/qzdescriptor.h"

#include <any>
#include <boost/any.hpp>

#include <string>
#include <vector>

#ifdef QZ_HAVE_QT
#    include <QString>
#    include <QVariant>
#    include <QVector>
#endif
#ifdef QZ_HAVE_GLIB
#    include <glib-object.h>
#endif
#ifdef QZ_HAVE_RTTR
#    include <rttr/variant.h>
#endif

// Containers of any value, each with the operations that are measured, written as its users write them.

using Doubles = std::vector<double>;

struct Ours {
    using Type = qzDescriptor::Value;
    using Text = qzString;
    using List = qzStlVector<double>;

    template <class T>
    static Type Make(T const& value) {
        Type made;
        made.SetValue(value, 0, 0);
        return made;
    }
    static Type Make(List const& list) {
        return Type(qzDescriptor::ValuePtr::Create(List(list), qzDescriptor::DS_DEFAULT));
    }
    static double Read(Type const& value) {
        double read = 0;
        value.GetValue(read, 0, 0);
        return read;
    }
    static void Write(Type& value, double number) { value.SetValue(number, 0, 0); }
};

struct StdAny {
    using Type = std::any;
    using Text = std::string;
    using List = Doubles;

    static Type Make(auto const& value) { return value; }
    static double Read(Type const& value) { return *std::any_cast<double>(&value); }
    static void Write(Type& value, double number) { *std::any_cast<double>(&value) = number; }
};

struct BoostAny {
    using Type = boost::any;
    using Text = std::string;
    using List = Doubles;

    static Type Make(auto const& value) { return value; }
    static double Read(Type const& value) { return *boost::any_cast<double>(&value); }
    static void Write(Type& value, double number) { *boost::any_cast<double>(&value) = number; }
};

#ifdef QZ_HAVE_QT
struct QtVariant {
    using Type = QVariant;
    using Text = QString;
    using List = QVector<double>;

    static Type Make(auto const& value) { return QVariant::fromValue(value); }
    static double Read(Type const& value) { return value.toDouble(); }
    static void Write(Type& value, double number) { value.setValue(number); }
};
#endif

#ifdef QZ_HAVE_RTTR
struct Rttr {
    using Type = rttr::variant;
    using Text = std::string;
    using List = Doubles;

    static Type Make(auto const& value) { return value; }
    static double Read(Type const& value) { return value.get_value<double>(); }
    static void Write(Type& value, double number) { value = number; }
};
#endif

#ifdef QZ_HAVE_GLIB
struct GLib {
    /// A GValue that copies and ends itself, as wrappers in C++ do.
    struct Type {
        GValue value = G_VALUE_INIT;

        Type() = default;
        Type(Type const& other) {
            g_value_init(&value, G_VALUE_TYPE(&other.value));
            g_value_copy(&other.value, &value);
        }
        Type& operator=(Type const&) = delete;
        ~Type() { g_value_unset(&value); }
    };
    using Text = std::string;

    static Type Make(double number) {
        Type made;
        g_value_init(&made.value, G_TYPE_DOUBLE);
        g_value_set_double(&made.value, number);
        return made;
    }
    static Type Make(std::string const& text) {
        Type made;
        g_value_init(&made.value, G_TYPE_STRING);
        g_value_set_string(&made.value, text.c_str());
        return made;
    }
    static double Read(Type const& value) { return g_value_get_double(&value.value); }
    static void Write(Type& value, double number) { g_value_set_double(&value.value, number); }
};
#endif
