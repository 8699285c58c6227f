#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include <xcb/damage.h>
#include <xcb/shm.h>
#include <xcb/xcb.h>

/// Watches everything that an X display shows, independently of the programs that draw it. Throws std::runtime_error if
/// the display (DISPLAY) cannot be reached or lacks the DAMAGE and MIT-SHM extensions.
class ScreenWatch {
public:
    ScreenWatch();
    ScreenWatch(const ScreenWatch&) = delete;
    ScreenWatch& operator=(const ScreenWatch&) = delete;
    ~ScreenWatch();

    /// Waits until something has been drawn since the last picture was taken. Returns false if nothing is drawn within
    /// `milliseconds`.
    bool waitForDrawing(int milliseconds);

    /// Captures the whole display, four bytes per pixel. The result is valid until the next call.
    std::span<const std::byte> takePicture();

    std::uint16_t width() const { return width_; }
    std::uint16_t height() const { return height_; }

private:
    bool takeDrawingEvents();

    xcb_connection_t* connection_;
    xcb_window_t root_ = 0;
    std::uint16_t width_ = 0;
    std::uint16_t height_ = 0;
    xcb_damage_damage_t damage_ = 0;
    std::uint8_t firstDamageEvent_ = 0;
    xcb_shm_seg_t segment_ = 0;
    std::size_t size_ = 0;
    void* pixels_ = nullptr;
};
