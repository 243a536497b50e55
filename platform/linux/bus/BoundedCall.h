#pragma once

#include "platform/linux/bus/TimeLimit.h"
#include "platform/linux/glib/Released.h"

#include <gio/gio.h>

#include <future>
#include <thread>
#include <utility>

namespace quillary {

/// A call that may never return, made on a thread of its own so that others wait for it within a time limit.
/// GIO makes such calls: it connects to a bus, and waits for the settings service, without a timeout.
///
/// A call that only takes a D-Bus timeout needs no `BoundedCall`; pass it what the TimeLimit has left.
template<typename T>
class BoundedCall {
public:
    /// Starts `function(GCancellable*)`, which returns a T. The cancellable is cancelled when this object is
    /// destroyed: a call that observes it ends then, any other keeps its thread until it returns. The
    /// function must therefore own everything that it uses.
    template<typename Function>
    explicit BoundedCall(Function function) {
        Cancellable held(static_cast<GCancellable*>(g_object_ref(m_cancellable.get())));
        std::packaged_task<T()> task([function = std::move(function), held = std::move(held)]() mutable {
            return function(held.get());
        });
        m_future = task.get_future().share();
        std::thread(std::move(task)).detach();
    }
    BoundedCall(const BoundedCall&) = delete;
    BoundedCall& operator=(const BoundedCall&) = delete;
    ~BoundedCall() { g_cancellable_cancel(m_cancellable.get()); }

    /// Waits within the limit until the call has returned; whether it has. For any number of threads.
    [[nodiscard]] bool returnsWithin(const TimeLimit& limit) const {
        return m_future.wait_for(limit.left()) == std::future_status::ready;
    }
    /// Waits likewise for the result, which belongs to this object; null when the call has not returned.
    [[nodiscard]] const T* resultWithin(const TimeLimit& limit) const {
        return returnsWithin(limit) ? &m_future.get() : nullptr;
    }

private:
    using Cancellable = Released<GCancellable, g_object_unref>;

    Cancellable m_cancellable{g_cancellable_new()};
    std::shared_future<T> m_future;
};

} // namespace quillary
