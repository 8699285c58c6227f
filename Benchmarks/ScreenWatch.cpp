#include "ScreenWatch.h"

#include <cstdlib>
#include <memory>
#include <stdexcept>

#include <poll.h>
#include <sys/ipc.h>
#include <sys/shm.h>

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

template<typename Reply>
std::unique_ptr<Reply, Free> owned(Reply* reply) {
    if (reply == nullptr) {
        throw std::runtime_error("the display did not answer");
    }
    return std::unique_ptr<Reply, Free>(reply);
}

} // namespace

ScreenWatch::ScreenWatch() : connection_(xcb_connect(nullptr, nullptr)) {
    const xcb_query_extension_reply_t* const extension = xcb_get_extension_data(connection_, &xcb_damage_id);
    if (xcb_connection_has_error(connection_) != 0 || extension == nullptr || extension->present == 0) {
        xcb_disconnect(connection_);
        throw std::runtime_error("no display with the extension DAMAGE");
    }
    firstDamageEvent_ = extension->first_event;
    owned(xcb_damage_query_version_reply(connection_, xcb_damage_query_version(connection_, 1, 1), nullptr));

    const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    root_ = screen->root;
    width_ = screen->width_in_pixels;
    height_ = screen->height_in_pixels;
    size_ = std::size_t{width_} * height_ * 4;
    const int memory = ::shmget(IPC_PRIVATE, size_, IPC_CREAT | 0600);
    pixels_ = ::shmat(memory, nullptr, 0);
    segment_ = xcb_generate_id(connection_);
    xcb_shm_attach(connection_, segment_, static_cast<std::uint32_t>(memory), 0);
    damage_ = xcb_generate_id(connection_);
    xcb_damage_create(connection_, damage_, root_, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
    takePicture();
    // Marked for removal only after the server has attached it; it is freed when both have detached.
    ::shmctl(memory, IPC_RMID, nullptr);
}

ScreenWatch::~ScreenWatch() {
    ::shmdt(pixels_);
    xcb_disconnect(connection_);
}

bool ScreenWatch::takeDrawingEvents() {
    bool isDrawn = false;
    while (const auto event = std::unique_ptr<xcb_generic_event_t, Free>(xcb_poll_for_event(connection_))) {
        isDrawn |= (event->response_type & 0x7F) == firstDamageEvent_ + XCB_DAMAGE_NOTIFY;
    }
    return isDrawn;
}

bool ScreenWatch::waitForDrawing(int milliseconds) {
    xcb_flush(connection_);
    if (takeDrawingEvents()) {
        return true;
    }
    pollfd descriptor = {.fd = xcb_get_file_descriptor(connection_), .events = POLLIN, .revents = 0};
    return ::poll(&descriptor, 1, milliseconds) > 0 && takeDrawingEvents();
}

std::span<const std::byte> ScreenWatch::takePicture() {
    // Resets the damage, so that later drawing is reported again.
    xcb_damage_subtract(connection_, damage_, XCB_NONE, XCB_NONE);
    owned(xcb_shm_get_image_reply(
        connection_,
        xcb_shm_get_image(connection_, root_, 0, 0, width_, height_, ~0U, XCB_IMAGE_FORMAT_Z_PIXMAP, segment_, 0),
        nullptr));
    return {static_cast<const std::byte*>(pixels_), size_};
}
