#pragma once

#include <QObject>
#include <cstdint>
#include <vector>

struct xcb_connection_t;
class QSocketNotifier;

namespace vantrelle {

// The one connection to the X server that the X11 adapters share, opened by the composition root.
// It reads every event that arrives and hands each to the adapters that listen. Where there is no X
// server it stays closed and the adapters do nothing.
class XConnection final : public QObject {
public:
    // Hears the events of the connection: each event in turn, then once after each burst. An event is
    // an xcb_generic_event_t, which xcb declares in a way that cannot be named here without its header.
    class Listener {
    public:
        virtual void handleEvent(const void* event) = 0;
        virtual void afterEvents() {}

    protected:
        ~Listener() = default;
    };

    // Connects to $DISPLAY.
    XConnection();
    ~XConnection() override;
    XConnection(const XConnection&) = delete;
    XConnection& operator=(const XConnection&) = delete;

    [[nodiscard]] bool isOpen() const { return m_connection != nullptr; }
    // Null when closed.
    [[nodiscard]] xcb_connection_t* get() const { return m_connection; }
    [[nodiscard]] std::uint32_t root() const { return m_root; }
    [[nodiscard]] int screenNumber() const { return m_screenNumber; }
    // The atom of a name, made if new; 0 when closed.
    [[nodiscard]] std::uint32_t atom(const char* name) const;

    void addListener(Listener& listener);
    void removeListener(Listener& listener);

private:
    void drain();
    void drainQueued();
    void dispatch(void* event);  // takes the event, which xcb allocated
    void finishBurst();

    xcb_connection_t* m_connection = nullptr;
    std::uint32_t m_root = 0;
    int m_screenNumber = 0;
    std::vector<Listener*> m_listeners;
    QSocketNotifier* m_notifier = nullptr;
};

}  // namespace vantrelle
