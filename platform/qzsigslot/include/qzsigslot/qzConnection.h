#pragma once

#include "qzsigslot/Export.h"

#include <cstddef>
#include <memory>
#include <vector>

/// The policy of signals that are used on one thread and take no lock.
struct single_threaded {};

class qzSignalCore;
class qzListenerCore;

/// What a signal keeps of one connection. It belongs to the signal, and to nobody once it is severed.
class QZSIGSLOT_API qzConnectionBase {
public:
    qzConnectionBase(qzConnectionBase const&) = delete;
    qzConnectionBase& operator=(qzConnectionBase const&) = delete;
    virtual ~qzConnectionBase();

    bool IsConnected() const { return m_signal != nullptr; }
    /// Safe at any time, from inside of the slot too: it is not called again.
    void Disconnect();

protected:
    /// A function of the type that the signal's argument asks for, and what it is called with.
    struct Entry {
        void (*function)();
        void* object;
    };

    /// A listener, or null, whose end severs the connection.
    explicit qzConnectionBase(qzListenerCore* listener) : m_listener(listener) {}

    qzListenerCore* GetListener() const { return m_listener; }

private:
    friend class qzSignalCore;
    friend class qzListenerCore;

    virtual Entry P_GetEntry() = 0;
    /// The same connection of another signal.
    virtual std::shared_ptr<qzConnectionBase> P_Clone() const = 0;
    /// The signal that a chained connection goes on to.
    virtual qzSignalCore* P_GetTarget() const { return nullptr; }

    qzListenerCore* m_listener;
    std::size_t m_placeAtListener = 0;
    qzSignalCore* m_signal = nullptr;
    std::size_t m_placeAtSignal = 0;
    std::shared_ptr<qzConnectionBase> m_nextSevered; // of those that end together
};

/// What somebody who connected keeps in order to disconnect. It may outlive the connection, the signal and
/// the listener.
template <class Policy = single_threaded>
class qzConnection {
public:
    qzConnection() = default;
    explicit qzConnection(std::weak_ptr<qzConnectionBase> connection) : m_connection(std::move(connection)) {}

    bool IsConnected() const {
        auto const connection = m_connection.lock();
        return connection && connection->IsConnected();
    }
    void Disconnect() const {
        if (auto const connection = m_connection.lock())
            connection->Disconnect();
    }

private:
    std::weak_ptr<qzConnectionBase> m_connection;
};

/// Whatever listens: it knows its connections, and severs them when it ends.
class QZSIGSLOT_API qzListenerCore {
public:
    std::size_t GetConnectionCount() const { return m_connections.size(); }
    void DisconnectAll();

protected:
    qzListenerCore() = default;
    // Connections belong to one object: a copy has none.
    qzListenerCore(qzListenerCore const&) {}
    qzListenerCore& operator=(qzListenerCore const&) { return *this; }
    ~qzListenerCore();

private:
    friend class qzSignalCore;

    void P_Add(qzConnectionBase& connection);
    void P_Remove(qzConnectionBase const& connection);

    std::vector<qzConnectionBase*> m_connections;
};

/// The connections of one signal. Slots may connect, disconnect, emit, and end listeners or the signal while
/// it emits: what is severed is not called again, what is new is called by the next emission.
class QZSIGSLOT_API qzSignalCore {
public:
    struct Slot {
        void (*function)(); ///< null once it is severed
        void* object;
    };

    /// Keeps the core while one lives.
    class QZSIGSLOT_API Emission {
    public:
        explicit Emission(qzSignalCore& core) : m_core(core) { ++core.m_emissions; }
        Emission(Emission const&) = delete;
        Emission& operator=(Emission const&) = delete;
        ~Emission() {
            if (--m_core.m_emissions == 0 && m_core.m_isUntidy) [[unlikely]]
                m_core.P_EndEmissions();
        }

    private:
        qzSignalCore& m_core;
    };

    /// Ends the core: at once, or when it has finished emitting.
    struct Release {
        void operator()(qzSignalCore* core) const { core->P_Release(); }
    };

    static std::unique_ptr<qzSignalCore, Release> Create();

    std::size_t GetConnectionCount() const { return m_slots.size() - m_severed; }
    /// Null, connecting nothing, where that would lead a chain of signals back to this one.
    std::shared_ptr<qzConnectionBase> Connect(std::shared_ptr<qzConnectionBase> connection);
    void DisconnectAll();
    void CopyConnectionsOf(qzSignalCore const& other);

    std::size_t GetSlotCount() const { return m_slots.size(); }
    Slot GetSlot(std::size_t place) const { return m_slots[place]; }

private:
    friend class qzConnectionBase;

    qzSignalCore() = default;
    ~qzSignalCore() = default;

    void P_Sever(qzConnectionBase& connection);
    void P_Sweep();
    void P_EndEmissions();
    void P_Release();
    bool P_LeadsTo(qzSignalCore const& other) const;

    // Side by side; a severed connection leaves a slot without a function until nobody emits.
    std::vector<Slot> m_slots;
    std::vector<std::shared_ptr<qzConnectionBase>> m_connections;
    std::size_t m_severed = 0;
    std::size_t m_emissions = 0;
    bool m_isUntidy = false; // something waits for the end of the emissions
    bool m_isReleased = false;
};
