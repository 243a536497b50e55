// An application that uses memory as its arguments say. Arguments: class, then "name=number" in MiB, of
//   anonymous  its own              shared  one piece, used by all its processes
//   forked     written before its children were forked, so that all share it
//   private    each child's own     lazy    written, then given back by MADV_FREE
//   swapped    written, then pushed out to swap
// and children=N; detached=N, a process that gave up its parent and uses that much; nodump=1, let no other
// process read it; wave=SECONDS, its own memory grows and shrinks with that period. When everything is in
// place it shows a window of that class; of the class "-" none.

#include <xcb/xcb.h>
#include <xcb/xcb_icccm.h>

#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <map>
#include <numbers>
#include <string>

#include <sys/mman.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace {

constexpr std::size_t mebibyte = std::size_t{1} << 20U;
constexpr std::size_t page = 4096;

class Memory {
public:
    Memory(long mebibytes, int sharing) : m_length(static_cast<std::size_t>(mebibytes) * mebibyte) {
        if (m_length > 0) {
            m_place = static_cast<char*>(
                mmap(nullptr, m_length, PROT_READ | PROT_WRITE, sharing | MAP_ANONYMOUS, -1, 0));
            // Pages of 2 MiB would come back later than they are given.
            madvise(m_place, m_length, MADV_NOHUGEPAGE);
            write(0, m_length);
        }
    }

    void write(std::size_t from, std::size_t to) const {
        for (std::size_t offset = from; offset < to && offset < m_length; offset += page) {
            m_place[offset] = static_cast<char>(offset / page + 1);
        }
    }
    void advise(int advice) const { madvise(m_place, m_length, advice); }
    // The rest is given back.
    void keep(std::size_t bytes) const { madvise(m_place + bytes, m_length - bytes, MADV_DONTNEED); }
    [[nodiscard]] std::size_t size() const { return m_length; }

private:
    std::size_t m_length;
    char* m_place = nullptr;
};

xcb_atom_t atom(xcb_connection_t* xcb, const char* name) {
    auto* reply = xcb_intern_atom_reply(
        xcb, xcb_intern_atom(xcb, 0, static_cast<std::uint16_t>(std::strlen(name)), name), nullptr);
    const auto value = reply != nullptr ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    std::free(reply);
    return value;
}

void show(xcb_connection_t* xcb, const std::string& id) {
    const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(xcb)).data;
    const auto window = xcb_generate_id(xcb);
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, window, screen->root, 100, 100, 300, 200, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL,
                      &screen->white_pixel);
    const std::string windowClass = id + '\0' + id + '\0';
    xcb_icccm_set_wm_class(xcb, window, static_cast<std::uint32_t>(windowClass.size()), windowClass.data());
    char machine[256] = {};
    gethostname(machine, sizeof machine - 1);
    xcb_icccm_set_wm_client_machine(xcb, window, XCB_ATOM_STRING, 8,
                                    static_cast<std::uint32_t>(std::strlen(machine)), machine);
    const auto pid = static_cast<std::uint32_t>(getpid());
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, window, atom(xcb, "_NET_WM_PID"), XCB_ATOM_CARDINAL, 32,
                        1, &pid);
    xcb_map_window(xcb, window);
    xcb_flush(xcb);
}

// Returns when the pipe's other end is gone: the parent ended.
void waitForEnd(int pipeEnd) {
    char byte = 0;
    while (read(pipeEnd, &byte, 1) > 0) {
    }
}

void wave(const Memory& memory, double period) {
    const auto begin = std::chrono::steady_clock::now();
    std::size_t reached = memory.size();
    while (getppid() != 1) {
        const double time = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
        const double share = 0.5 + 0.5 * std::cos(2 * std::numbers::pi * time / period);
        const auto wanted =
            static_cast<std::size_t>(share * static_cast<double>(memory.size())) / page * page;
        if (wanted > reached) {
            memory.write(reached, wanted);
        } else {
            memory.keep(wanted);
        }
        reached = wanted;
        usleep(50'000);
    }
}

} // namespace

int main(int argc, char* argv[]) {
    std::map<std::string, long> wish;
    for (int index = 2; index < argc; ++index) {
        const char* sign = std::strchr(argv[index], '=');
        if (sign == nullptr) {
            return 2;
        }
        const std::string name(static_cast<const char*>(argv[index]), sign);
        wish[name] = std::strtol(sign + 1, nullptr, 10);
    }
    if (argc < 2) {
        return 2;
    }
    int ends[2] = {};
    int ready[2] = {};
    if (pipe(ends) != 0 || pipe(ready) != 0) {
        return 1;
    }
    const Memory forked(wish["forked"], MAP_PRIVATE);
    const Memory shared(wish["shared"], MAP_SHARED);
    const Memory lazy(wish["lazy"], MAP_PRIVATE);
    const Memory swapped(wish["swapped"], MAP_PRIVATE);
    if (lazy.size() > 0) {
        lazy.advise(MADV_FREE);
    }
    if (swapped.size() > 0) {
        swapped.advise(MADV_PAGEOUT);
    }
    const auto children = wish["children"];
    for (long child = 0; child < children; ++child) {
        if (fork() == 0) {
            close(ends[1]);
            const Memory own(wish["private"], MAP_PRIVATE);
            shared.write(0, shared.size());
            write(ready[1], "r", 1);
            waitForEnd(ends[0]);
            _exit(0);
        }
    }
    if (wish["detached"] > 0) {
        if (fork() == 0) {
            if (setsid() > 0 && fork() == 0) {
                // As a crash handler would, anew from its own file.
                const std::string amount = "anonymous=" + std::to_string(wish["detached"]);
                close(ends[1]);
                dup2(ends[0], STDIN_FILENO);
                execl(argv[0], argv[0], "-", amount.c_str(), static_cast<char*>(nullptr));
            }
            _exit(0);
        }
    }
    if (wish["nodump"] != 0) {
        prctl(PR_SET_DUMPABLE, 0);
    }
    // No child has any of it.
    const Memory anonymous(wish["anonymous"], MAP_PRIVATE);
    char byte = 0;
    for (long child = 0; child < children; ++child) {
        if (read(ready[0], &byte, 1) != 1) {
            return 1;
        }
    }
    if (std::strcmp(argv[1], "-") == 0) {
        if (wish["wave"] > 0) {
            wave(anonymous, static_cast<double>(wish["wave"]));
        }
        waitForEnd(STDIN_FILENO);
        return 0;
    }
    auto* xcb = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(xcb) != 0) {
        return 1;
    }
    show(xcb, argv[1]);
    // It ends with its server.
    while (auto* event = xcb_wait_for_event(xcb)) {
        std::free(event);
    }
    xcb_disconnect(xcb);
    return 0;
}
