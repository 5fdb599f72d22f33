#include "qzsigslot/qzConnection.h"

#include <algorithm>
#include <utility>

qzConnectionBase::~qzConnectionBase() = default;

void qzConnectionBase::Disconnect() {
    if (m_signal != nullptr)
        m_signal->P_Sever(*this);
}

qzListenerCore::~qzListenerCore() { DisconnectAll(); }

void qzListenerCore::DisconnectAll() {
    while (!m_connections.empty())
        m_connections.back()->Disconnect();
}

void qzListenerCore::P_Add(qzConnectionBase& connection) {
    connection.m_placeAtListener = m_connections.size();
    m_connections.push_back(&connection);
}

void qzListenerCore::P_Remove(qzConnectionBase const& connection) {
    qzConnectionBase* const last = m_connections.back();
    m_connections[connection.m_placeAtListener] = last;
    last->m_placeAtListener = connection.m_placeAtListener;
    m_connections.pop_back();
}

std::unique_ptr<qzSignalCore, qzSignalCore::Release> qzSignalCore::Create() {
    return std::unique_ptr<qzSignalCore, Release>(new qzSignalCore);
}

std::shared_ptr<qzConnectionBase> qzSignalCore::Connect(std::shared_ptr<qzConnectionBase> connection) {
    qzSignalCore const* const target = connection->P_GetTarget();
    if (m_isReleased || (target != nullptr && target->P_LeadsTo(*this)))
        return nullptr;
    m_connections.push_back(connection);
    try {
        auto const [function, object] = connection->P_GetEntry();
        m_slots.push_back({function, object});
        if (connection->m_listener != nullptr)
            connection->m_listener->P_Add(*connection);
    } catch (...) {
        m_connections.pop_back();
        m_slots.resize(m_connections.size());
        throw;
    }
    connection->m_signal = this;
    connection->m_placeAtSignal = m_slots.size() - 1;
    return connection;
}

void qzSignalCore::DisconnectAll() {
    Emission const untilAllAreSevered(*this);
    for (std::size_t place = 0; place < m_slots.size(); ++place) {
        if (m_slots[place].function != nullptr)
            P_Sever(*m_connections[place]);
    }
}

void qzSignalCore::CopyConnectionsOf(qzSignalCore const& other) {
    for (std::size_t place = 0; place < other.m_slots.size(); ++place) {
        if (other.m_slots[place].function != nullptr)
            Connect(other.m_connections[place]->P_Clone());
    }
}

void qzSignalCore::P_Sever(qzConnectionBase& connection) {
    m_slots[connection.m_placeAtSignal] = {nullptr, nullptr};
    connection.m_signal = nullptr;
    if (connection.m_listener != nullptr)
        connection.m_listener->P_Remove(connection);
    ++m_severed;
    m_isUntidy = true;
    // Slots are given back in bulk: severing many connections takes a time that grows with their number only.
    if (m_emissions == 0 && 2 * m_severed > m_slots.size())
        P_Sweep();
}

void qzSignalCore::P_Sweep() {
    std::shared_ptr<qzConnectionBase> severed;
    std::size_t kept = 0;
    for (std::size_t place = 0; place < m_slots.size(); ++place) {
        std::shared_ptr<qzConnectionBase> connection = std::move(m_connections[place]);
        if (m_slots[place].function == nullptr) {
            connection->m_nextSevered = std::move(severed);
            severed = std::move(connection);
        } else {
            connection->m_placeAtSignal = kept;
            m_slots[kept] = m_slots[place];
            m_connections[kept++] = std::move(connection);
        }
    }
    m_slots.resize(kept);
    m_connections.resize(kept);
    m_severed = 0;
    m_isUntidy = false;
    // Last: what the slots have captured may connect and disconnect while it ends.
    while (severed)
        severed = std::move(severed->m_nextSevered);
}

void qzSignalCore::P_EndEmissions() {
    if (!m_isReleased) {
        P_Sweep();
        return;
    }
    auto const severed = std::move(m_connections); // ends behind the core
    delete this;
}

void qzSignalCore::P_Release() {
    m_isReleased = m_isUntidy = true;
    DisconnectAll();
}

bool qzSignalCore::P_LeadsTo(qzSignalCore const& other) const {
    std::vector<qzSignalCore const*> reached{this};
    for (std::size_t k = 0; k < reached.size(); ++k) {
        if (reached[k] == &other)
            return true;
        for (std::size_t place = 0; place < reached[k]->m_slots.size(); ++place) {
            if (reached[k]->m_slots[place].function == nullptr)
                continue;
            qzSignalCore const* const next = reached[k]->m_connections[place]->P_GetTarget();
            if (next != nullptr && std::find(reached.begin(), reached.end(), next) == reached.end())
                reached.push_back(next);
        }
    }
    return false;
}
