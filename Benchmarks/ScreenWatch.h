#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include <xcb/damage.h>
#include <xcb/shm.h>
#include <xcb/xcb.h>

/// Looks at everything that an X display shows, from outside the programs that draw it. Throws std::runtime_error where
/// the display (DISPLAY) cannot be reached or lacks the extensions DAMAGE and MIT-SHM.
class ScreenWatch {
public:
    ScreenWatch();
    ScreenWatch(const ScreenWatch&) = delete;
    ScreenWatch& operator=(const ScreenWatch&) = delete;
    ~ScreenWatch();

    /// Waits until something was drawn since the last picture was taken; false after `milliseconds` without.
    bool waitForDrawing(int milliseconds);

    /// Takes the picture of the whole display as it is now; it stays until the next is taken. Four bytes a pixel.
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
