#pragma once

#include "tests/x11/VirtualDisplay.h"

namespace quillary::test {

/// A window of another client: it has a connection of its own. White, 0 border.
class TestWindow {
public:
    enum class Manager {
        /// The window manager decides, as with any application.
        asked,
        /// Placed exactly where requested (override-redirect).
        bypassed,
    };

    TestWindow(const VirtualDisplay& host, const QRect& geometry, Manager manager = Manager::asked);
    ~TestWindow();
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    [[nodiscard]] xcb_window_t id() const { return m_window; }
    [[nodiscard]] xcb_connection_t* xcb() const { return m_connection; }

    void setText(const std::string& property, const std::string& bytes);
    void setNumbers(const std::string& property, const std::string& type,
                    const std::vector<std::uint32_t>& values);
    void setAtoms(const std::string& property, const std::vector<std::string>& values);
    void removeProperty(const std::string& property);
    /// WM_CLASS.
    void setClass(const std::string& instance, const std::string& windowClass);
    /// _NET_WM_PID and WM_CLIENT_MACHINE.
    void setProcess(std::uint32_t pid, const std::string& machine);

    /// Maps it and waits until it is seen.
    bool show();
    void unmap();
    void destroy();
    /// Grabs the pointer as a menu or a drag does.
    bool grabPointer();

    /// Buttons pressed on it so far.
    [[nodiscard]] int clicks();
    /// Whether it was asked to close (WM_DELETE_WINDOW).
    [[nodiscard]] bool closeAsked();

private:
    void sync();
    void readEvents();

    const VirtualDisplay& m_display;
    xcb_connection_t* m_connection;
    xcb_window_t m_window;
    int m_clickCount = 0;
    bool m_deleteAsked = false;
};

} // namespace quillary::test
