#pragma once

#include <utility>

namespace qzDescriptor {

/// What a look-up that found nothing hands out to be written into: an object of the calling thread, made anew
/// at every call, so that nothing written into it is ever seen again.
///
/// It ends with its thread. A thread that still asks after that, from the destructors of objects in static
/// storage, gets another one, which lasts as long as the program.
template <class T, class... Arguments>
T& MakeAbsent(Arguments const&... arguments) {
    thread_local constinit T* s_object = nullptr; // never destroyed, unlike a thread-local T
    struct Owner {
        ~Owner() { delete std::exchange(s_object, nullptr); }
    };
    thread_local Owner const s_owner;
    (void)s_owner;
    if (s_object == nullptr)
        s_object = new T(arguments...);
    else
        *s_object = T(arguments...);
    return *s_object; // NOLINT(clang-analyzer-cplusplus.NewDelete): to the analyzer s_owner ends here
}

} // namespace qzDescriptor
