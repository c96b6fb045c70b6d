#include "fake_node.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <system_error>
#include <vector>

namespace glidemap::bench {

namespace {

constexpr std::int32_t slotCount = 5;

struct Axis {
    unsigned code;
    std::int32_t maximum;
    std::int32_t resolution;
};

// The axes of a typical touchpad with pressure.
constexpr auto axes = std::to_array<Axis>({{ABS_X, 4000, 40},
                                           {ABS_Y, 2000, 40},
                                           {ABS_PRESSURE, 255, 0},
                                           {ABS_MT_SLOT, slotCount - 1, 0},
                                           {ABS_MT_TOUCH_MAJOR, 255, 0},
                                           {ABS_MT_TOUCH_MINOR, 255, 0},
                                           {ABS_MT_POSITION_X, 4000, 40},
                                           {ABS_MT_POSITION_Y, 2000, 40},
                                           {ABS_MT_TRACKING_ID, 65535, 0},
                                           {ABS_MT_PRESSURE, 255, 0}});
constexpr auto keys =
    std::to_array<unsigned>({BTN_LEFT, BTN_TOUCH, BTN_TOOL_FINGER, BTN_TOOL_DOUBLETAP,
                             BTN_TOOL_TRIPLETAP, BTN_TOOL_QUADTAP, BTN_TOOL_QUINTTAP});

// For each axis code, whether the reader has masked the axis.
std::array<bool, ABS_CNT> masked{};

class Reply {
public:
    Reply(void* memory, std::size_t bytes)
        : data(static_cast<unsigned char*>(memory)), size(bytes) {
        std::memset(data, 0, size);
    }

    void setBit(unsigned number) {
        if (number / 8 < size) {
            data[number / 8] |= static_cast<unsigned char>(1U << (number % 8));
        }
    }

    int text(const char* words) {
        std::strncpy(reinterpret_cast<char*>(data), words, size - 1);
        return static_cast<int>(std::strlen(words)) + 1;
    }

private:
    unsigned char* data;
    std::size_t size;
};

int replyBits(unsigned type, Reply reply) {
    if (type == 0) {
        for (const unsigned each : {EV_SYN, EV_KEY, EV_ABS}) {
            reply.setBit(each);
        }
    } else if (type == EV_KEY) {
        std::ranges::for_each(keys, [&](unsigned key) { reply.setBit(key); });
    } else if (type == EV_ABS) {
        std::ranges::for_each(axes, [&](const Axis& axis) { reply.setBit(axis.code); });
    }
    return 0;
}

int replyAxis(unsigned code, void* memory) {
    const auto axis = std::ranges::find(axes, code, &Axis::code);
    if (axis == axes.end()) {
        errno = EINVAL;
        return -1;
    }
    input_absinfo range{};
    range.maximum = axis->maximum;
    range.resolution = axis->resolution;
    *static_cast<input_absinfo*>(memory) = range;
    return 0;
}

int replySlots(std::int32_t* values, std::size_t bytes) {
    const std::int32_t value = values[0] == ABS_MT_TRACKING_ID ? -1 : 0;
    std::fill(values + 1, values + bytes / sizeof(std::int32_t), value);
    return 0;
}

int takeMask(const input_mask& mask) {
    const auto* const bits = reinterpret_cast<const unsigned char*>(mask.codes_ptr);
    for (unsigned code = 0; mask.type == EV_ABS && code < ABS_CNT; ++code) {
        masked[code] = code / 8 >= mask.codes_size || (bits[code / 8] >> (code % 8) & 1U) == 0;
    }
    return 0;
}

// Replies to the device's ioctl requests as the kernel does.
int reply(unsigned long request, void* memory) {
    const unsigned number = _IOC_NR(request);
    const std::size_t size = _IOC_SIZE(request);
    if (request == EVIOCGVERSION) {
        *static_cast<int*>(memory) = EV_VERSION;
        return 0;
    }
    if (request == EVIOCGID) {
        *static_cast<input_id*>(memory) = {BUS_USB, 0x6b67, 1, 0x100};
        return 0;
    }
    if (request == EVIOCSMASK) {
        return takeMask(*static_cast<const input_mask*>(memory));
    }
    if (number == _IOC_NR(EVIOCGNAME(0))) {
        return Reply(memory, size).text("Fake Touchpad");
    }
    if (number == _IOC_NR(EVIOCGPROP(0))) {
        Reply properties(memory, size);
        properties.setBit(INPUT_PROP_POINTER);
        properties.setBit(INPUT_PROP_BUTTONPAD);
        return 0;
    }
    if (number == _IOC_NR(EVIOCGMTSLOTS(0))) {
        return replySlots(static_cast<std::int32_t*>(memory), size);
    }
    if (number >= _IOC_NR(EVIOCGABS(0)) && _IOC_DIR(request) == _IOC_READ &&
        number < _IOC_NR(EVIOCGABS(0)) + ABS_CNT) {
        return replyAxis(static_cast<unsigned>(number - _IOC_NR(EVIOCGABS(0))), memory);
    }
    if (number >= _IOC_NR(EVIOCGBIT(0, 0)) && number < _IOC_NR(EVIOCGBIT(0, 0)) + EV_CNT) {
        return replyBits(static_cast<unsigned>(number - _IOC_NR(EVIOCGBIT(0, 0))),
                         Reply(memory, size));
    }
    const bool isState = number >= _IOC_NR(EVIOCGKEY(0)) && number <= _IOC_NR(EVIOCGSW(0));
    if (isState) {
        Reply(memory, size); // no button is pressed
        return 0;
    }
    if (request == EVIOCSCLOCKID) {
        return 0;
    }
    errno = ENOENT;
    return -1;
}

} // namespace

FakeNode::FakeNode() {
    std::string pattern = std::filesystem::temp_directory_path() / "glidemap-bench-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), "mkdtemp");
    }
    folder = pattern;
    node = folder / "event0";
    if (mkfifo(node.c_str(), S_IRUSR | S_IWUSR) != 0) {
        throw std::system_error(errno, std::generic_category(), "mkfifo");
    }
    // Open the pipe for reading as well, because opening it only for writing would fail without a
    // reader.
    writer = OpenFile(open(node.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    masked.fill(false);
}

FakeNode::~FakeNode() {
    std::filesystem::remove_all(folder);
}

void FakeNode::write(std::span<const input_event> events) {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    std::array<input_event, 64> frame{};
    std::size_t count = 0;
    const auto add = [&](input_event event) {
        event.input_event_sec = now.tv_sec;
        event.input_event_usec = now.tv_nsec / 1000;
        frame[count++] = event;
    };
    for (const input_event& event : events) {
        if (event.type != EV_ABS || !masked[event.code]) {
            add(event);
        }
    }
    input_event synchronisation{};
    synchronisation.type = EV_SYN;
    add(synchronisation);
    [[maybe_unused]] const auto size =
        ::write(writer.descriptor(), frame.data(), count * sizeof frame[0]);
}

} // namespace glidemap::bench

// Replaces the C library's ioctl() in this program and the libraries that it uses.
extern "C" __attribute__((visibility("default"))) int ioctl(int descriptor, unsigned long request,
                                                            ...) noexcept {
    va_list arguments;
    va_start(arguments, request);
    void* const memory = va_arg(arguments, void*);
    va_end(arguments);
    if (_IOC_TYPE(request) == 'E') {
        return glidemap::bench::reply(request, memory);
    }
    return static_cast<int>(syscall(SYS_ioctl, descriptor, request, memory));
}
