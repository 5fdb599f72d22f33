#pragma once

#include "qzinterp/qzScriptCallback.h"
#include "qzsigslot/qzConnection.h"
#include "qzsigslot/qzListener.h"

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

template <class R, class Argument, class Policy>
class qziSignal1;

/// What a signal calls, whatever is behind it.
template <class Argument>
using qzSlotFunction = void (*)(void* object, Argument argument);

/// A connection that takes the argument itself.
template <class R, class Argument>
class qzConnectionBase1 : public qzConnectionBase {
public:
    virtual void Call(Argument argument) = 0;

protected:
    using qzConnectionBase::qzConnectionBase;
    using Entry = qzConnectionBase::Entry;

    static Entry P_MakeEntry(qzSlotFunction<Argument> function, void* object) {
        return {reinterpret_cast<void (*)()>(function), object};
    }

private:
    Entry P_GetEntry() override {
        return P_MakeEntry(
            [](void* object, Argument argument) { static_cast<qzConnectionBase1*>(object)->Call(argument); },
            this);
    }
};

/// A method known at compile time: the signal calls it with the listener, without a detour.
template <class R, class Argument, auto Method, class L>
class qzMethodConnection1 final : public qzConnectionBase1<R, Argument> {
public:
    explicit qzMethodConnection1(L& listener)
        : qzConnectionBase1<R, Argument>(&listener), m_object(&listener) {}

    void Call(Argument argument) override { (m_object->*Method)(argument); }

private:
    typename qzConnectionBase1<R, Argument>::Entry P_GetEntry() override {
        return this->P_MakeEntry(
            [](void* object, Argument argument) { (static_cast<L*>(object)->*Method)(argument); }, m_object);
    }
    std::shared_ptr<qzConnectionBase> P_Clone() const override {
        return std::make_shared<qzMethodConnection1>(*m_object);
    }

    L* m_object;
};

template <class R, class Argument>
class qzFunctionConnection1 final : public qzConnectionBase1<R, Argument> {
public:
    qzFunctionConnection1(qzListenerCore* listener, std::function<R(Argument)> slot)
        : qzConnectionBase1<R, Argument>(listener), m_slot(std::move(slot)) {}

    void Call(Argument argument) override { m_slot(argument); }

private:
    std::shared_ptr<qzConnectionBase> P_Clone() const override {
        return std::make_shared<qzFunctionConnection1>(this->GetListener(), m_slot);
    }

    std::function<R(Argument)> m_slot;
};

/// One signal after another.
template <class R, class Argument, class Policy>
class _qzChainedSignalConn1 final : public qzConnectionBase1<R, Argument> {
public:
    explicit _qzChainedSignalConn1(qziSignal1<R, Argument, Policy>& target)
        : qzConnectionBase1<R, Argument>(&target), m_target(target) {}

    void Call(Argument argument) override { m_target.Emit(argument); }

private:
    std::shared_ptr<qzConnectionBase> P_Clone() const override {
        return std::make_shared<_qzChainedSignalConn1>(m_target);
    }
    qzSignalCore* P_GetTarget() const override { return &m_target.GetCore(); }

    qziSignal1<R, Argument, Policy>& m_target;
};

/// What a script gets for an argument: a number, truth value or text as such, the address of anything else.
template <class T>
qzVariant qzScriptArgument(T const& value) {
    qzVariant variant;
    if constexpr (std::is_same_v<T, qzString>)
        variant.SetString(value);
    else if constexpr (std::is_same_v<T, bool>)
        variant.SetBoolean(value);
    else if constexpr (std::is_integral_v<T>)
        variant.SetLong64(static_cast<long long>(value));
    else if constexpr (std::is_floating_point_v<T>)
        variant.SetDouble(static_cast<double>(value));
    else
        variant.SetPointer(const_cast<T*>(&value));
    return variant;
}

/// A script function, called with the argument alone.
template <class R, class Argument, class Policy>
class _qzScriptGlobalConnection1 final : public qzConnectionBase1<R, Argument> {
public:
    explicit _qzScriptGlobalConnection1(qzScriptCallback const& callback)
        : qzConnectionBase1<R, Argument>(nullptr), m_callback(callback) {}

    void Call(Argument argument) override { m_callback.InvokeOrReport({qzScriptArgument(argument)}); }

private:
    std::shared_ptr<qzConnectionBase> P_Clone() const override {
        return std::make_shared<_qzScriptGlobalConnection1>(m_callback);
    }

    qzScriptCallback m_callback;
};

/// A script function that speaks for an object, of which it gets the address first.
template <class R, class Argument>
class qzScriptObjectConnection1 : public qzConnectionBase1<R, Argument> {
public:
    void Call(Argument argument) override {
        qzVariant object;
        object.SetPointer(m_object);
        m_callback.InvokeOrReport({object, qzScriptArgument(argument)});
    }

protected:
    qzScriptObjectConnection1(qzListenerCore* listener, void* object, qzScriptCallback const& callback)
        : qzConnectionBase1<R, Argument>(listener), m_object(object), m_callback(callback) {}

    void* m_object;
    qzScriptCallback m_callback;
};

/// For a listener, as long as it lives.
template <class R, class Argument, class Policy>
class _qzScriptListenerConnection1 final : public qzScriptObjectConnection1<R, Argument> {
public:
    _qzScriptListenerConnection1(qzListener<Policy>& listener, qzScriptCallback const& callback)
        : qzScriptObjectConnection1<R, Argument>(&listener, &listener, callback) {}

private:
    std::shared_ptr<qzConnectionBase> P_Clone() const override {
        return std::make_shared<_qzScriptListenerConnection1>(
            *static_cast<qzListener<Policy>*>(this->m_object), this->m_callback);
    }
};

/// For any other object, whose end is not noticed.
template <class R, class Argument, class Policy>
class _qzScriptNonListenerConnection1 final : public qzScriptObjectConnection1<R, Argument> {
public:
    _qzScriptNonListenerConnection1(void* object, qzScriptCallback const& callback)
        : qzScriptObjectConnection1<R, Argument>(nullptr, object, callback) {}

private:
    std::shared_ptr<qzConnectionBase> P_Clone() const override {
        return std::make_shared<_qzScriptNonListenerConnection1>(this->m_object, this->m_callback);
    }
};
