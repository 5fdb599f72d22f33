#pragma once

#include "qzsigslot/qzListener.h"
#include "qzsigslot/qzSlotConnections.h"

#include <functional>
#include <memory>
#include <utility>

/// What signals of every argument have. A signal listens too: to those that are chained to it.
template <class Policy = single_threaded>
class qzSignal : public qzListener<Policy> {
public:
    std::size_t GetConnectionCount() const { return m_core->GetConnectionCount(); }
    void DisconnectAll() { m_core->DisconnectAll(); }

    /// For connections between signals.
    qzSignalCore& GetCore() const { return *m_core; }

protected:
    qzSignal() : m_core(qzSignalCore::Create()) {}
    qzSignal(qzSignal const& other) : qzListener<Policy>(other), m_core(qzSignalCore::Create()) {
        m_core->CopyConnectionsOf(*other.m_core);
    }
    qzSignal& operator=(qzSignal const& other) {
        if (this != &other) {
            m_core->DisconnectAll();
            m_core->CopyConnectionsOf(*other.m_core);
        }
        return *this;
    }
    /// First, nothing reaches this signal any more.
    ~qzSignal() { qzListenerCore::DisconnectAll(); }

private:
    std::unique_ptr<qzSignalCore, qzSignalCore::Release> m_core;
};

/// A signal as its listeners see it: something to connect to. Every connection is called in the order of
/// connecting; what a slot returns goes nowhere.
template <class R, class Argument, class Policy = single_threaded>
class qziSignal1 : public qzSignal<Policy> {
public:
    using Connection = qzConnection<Policy>;
    using Listener = qzListener<Policy>;

    virtual ~qziSignal1() = default;

    /// A method of a listener, named at compile time: `signal.template Connect<&Panel::OnEvent>(panel)`.
    template <auto Method, class L>
    requires std::is_base_of_v<Listener, L> Connection Connect(L& listener) {
        return P_Add(std::make_shared<qzMethodConnection1<R, Argument, Method, L>>(listener));
    }
    /// Anything that can be called, for as long as the listener lives.
    Connection Connect(Listener& listener, std::function<R(Argument)> slot) {
        return slot ? P_Add(std::make_shared<qzFunctionConnection1<R, Argument>>(&listener, std::move(slot)))
                    : Connection();
    }
    /// Anything that can be called, until it is disconnected.
    Connection Connect(std::function<R(Argument)> slot) {
        return slot ? P_Add(std::make_shared<qzFunctionConnection1<R, Argument>>(nullptr, std::move(slot)))
                    : Connection();
    }
    /// Another signal, which emits whatever this one does. Not connected when that one leads back here.
    Connection Chain(qziSignal1& target) {
        return P_Add(std::make_shared<_qzChainedSignalConn1<R, Argument, Policy>>(target));
    }

    /// A function of a script, called with the argument.
    Connection ConnectScript(qzScriptCallback const& callback) {
        return P_Add(std::make_shared<_qzScriptGlobalConnection1<R, Argument, Policy>>(callback));
    }
    /// Called with the listener's address and the argument, for as long as the listener lives.
    Connection ConnectScript(Listener& listener, qzScriptCallback const& callback) {
        return P_Add(std::make_shared<_qzScriptListenerConnection1<R, Argument, Policy>>(listener, callback));
    }
    /// Called with the object's address and the argument; the object's end is not noticed.
    Connection ConnectScript(void* object, qzScriptCallback const& callback) {
        return P_Add(
            std::make_shared<_qzScriptNonListenerConnection1<R, Argument, Policy>>(object, callback));
    }

    virtual void Emit(Argument argument) const = 0;

protected:
    qziSignal1() = default;
    qziSignal1(qziSignal1 const&) = default;
    qziSignal1& operator=(qziSignal1 const&) = default;

private:
    Connection P_Add(std::shared_ptr<qzConnectionBase> connection) {
        return Connection(this->GetCore().Connect(std::move(connection)));
    }
};

/// A signal with one argument.
template <class R, class Argument, class Policy = single_threaded>
class qzSignal1 final : public qziSignal1<R, Argument, Policy> {
public:
    void Emit(Argument argument) const override {
        qzSignalCore& core = this->GetCore();
        qzSignalCore::Emission const emission(core);
        std::size_t const count = core.GetSlotCount(); // what connects meanwhile waits for the next emission
        for (std::size_t place = 0; place < count; ++place) {
            auto const slot = core.GetSlot(place);
            if (slot.function != nullptr)
                reinterpret_cast<qzSlotFunction<Argument>>(slot.function)(slot.object, argument);
        }
    }
};
