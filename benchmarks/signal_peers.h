#pragma once

#include "qzsigslot/qzSignal.h"

#include <boost/signals2/signal.hpp>

#include <cstddef>
#include <deque>

#ifdef QZ_HAVE_QT
#    include <QObject>
#endif
#ifdef QZ_HAVE_SIGC
#    include <sigc++/sigc++.h>
#endif

// A signal with a number of listeners, each an object with a method that adds the argument up.

class OursEmitter {
public:
    explicit OursEmitter(std::size_t listeners) : m_listeners(listeners) {
        for (Listener& listener : m_listeners)
            m_signal.Connect<&Listener::OnNumber>(listener);
    }
    void Emit(int number) { m_signal.Emit(number); }
    long Sum() const { return m_listeners.back().sum; }

private:
    struct Listener : qzListener<> {
        void OnNumber(int const& number) { sum += number; }
        long sum = 0;
    };

    std::deque<Listener> m_listeners;
    qzSignal1<void, int const&, single_threaded> m_signal;
};

class BoostEmitter {
public:
    explicit BoostEmitter(std::size_t listeners) : m_sums(listeners) {
        for (long& sum : m_sums)
            m_signal.connect([&sum](int number) { sum += number; });
    }
    void Emit(int number) { m_signal(number); }
    long Sum() const { return m_sums.back(); }

private:
    std::deque<long> m_sums;
    boost::signals2::signal<void(int)> m_signal;
};

#ifdef QZ_HAVE_SIGC
class SigcEmitter {
public:
    explicit SigcEmitter(std::size_t listeners) : m_listeners(listeners) {
        for (Listener& listener : m_listeners)
            m_signal.connect(sigc::mem_fun(listener, &Listener::OnNumber));
    }
    void Emit(int number) { m_signal.emit(number); }
    long Sum() const { return m_listeners.back().sum; }

private:
    struct Listener : sigc::trackable {
        void OnNumber(int number) { sum += number; }
        long sum = 0;
    };

    std::deque<Listener> m_listeners;
    sigc::signal<void, int> m_signal;
};
#endif

#ifdef QZ_HAVE_QT
class QtSource : public QObject {
    Q_OBJECT

signals:
    void NumberCame(int number);
};

class QtListener : public QObject {
    Q_OBJECT

public:
    void OnNumber(int number) { sum += number; }
    long sum = 0;
};

class QtEmitter {
public:
    explicit QtEmitter(std::size_t listeners) : m_listeners(listeners) {
        for (QtListener& listener : m_listeners)
            QObject::connect(&m_source, &QtSource::NumberCame, &listener, &QtListener::OnNumber);
    }
    void Emit(int number) { emit m_source.NumberCame(number); }
    long Sum() const { return m_listeners.back().sum; }

private:
    std::deque<QtListener> m_listeners;
    QtSource m_source;
};
#endif
