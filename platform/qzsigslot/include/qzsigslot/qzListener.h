#pragma once

#include "qzsigslot/qzConnection.h"

/// The base of objects with slots. Its end severs every connection to it; a copy starts without any.
///
///     class Panel : public qzListener<> {
///     public:
///         void OnEvent(EntityEventInfo const& event);
///     };
template <class Policy = single_threaded>
class qzListener : public qzListenerCore {
protected:
    qzListener() = default;
    qzListener(qzListener const&) = default;
    qzListener& operator=(qzListener const&) = default;
    ~qzListener() = default;
};
