#include "recorded_pad.h"

#include <linux/input.h>

#include <fstream>
#include <ios>
#include <optional>
#include <ostream>
#include <sstream>

namespace glidemap::test {

namespace {

void readIdentity(std::istringstream& fields, PadShape& shape) {
    fields >> std::hex >> shape.bus >> shape.vendor >> shape.product >> shape.version;
}

void addBits(std::istringstream& fields, int first, std::set<int>& bits) {
    unsigned byte = 0;
    for (int base = first; fields >> std::hex >> byte; base += 8) {
        for (int bit = 0; bit < 8; ++bit) {
            if ((byte >> bit & 1U) != 0) {
                bits.insert(base + bit);
            }
        }
    }
}

// The axes have separate lines, so the reader needs only the bit field of the keys. A long bit
// field continues in the next line of the same kind.
void readBits(std::istringstream& fields, int& nextKey, PadShape& shape) {
    int type = 0;
    fields >> std::hex >> type;
    if (type == EV_KEY) {
        addBits(fields, nextKey, shape.keys);
        nextKey += 64;
    }
}

// `A: code minimum maximum fuzz flat resolution`; older recordings omit the resolution.
//
// The virtual touchpad gets no fuzz. The kernel had already filtered the events when they were
// recorded, and would drop more events if it filtered them again.
void readAxis(std::istringstream& fields, PadShape& shape) {
    int code = 0;
    std::int32_t fuzz = 0;
    PadAxis axis;
    fields >> std::hex >> code >> std::dec >> axis.minimum >> axis.maximum >> fuzz >> axis.flat;
    if (fields) {
        fields >> axis.resolution;
        shape.axes[code] = axis;
    }
}

void readEvent(std::istringstream& fields, EventFrame& open, std::vector<EventFrame>& frames) {
    std::string time;
    PadEvent event;
    fields >> time >> std::hex >> event.type >> event.code >> std::dec >> event.value;
    if (!fields) {
        return;
    }
    if (event.type == EV_SYN && event.code == SYN_REPORT) {
        frames.push_back(std::move(open));
        open.clear();
    } else {
        open.push_back(event);
    }
}

} // namespace

std::ostream& operator<<(std::ostream& output, const PadEvent& event) {
    return output << event.type << ':' << event.code << '=' << event.value;
}

std::int32_t PadShape::slotCount() const {
    const auto slots = axes.find(ABS_MT_SLOT);
    return slots != axes.end() ? slots->second.maximum + 1 : 0;
}

RecordedPad readRecordedPad(std::istream& text) {
    RecordedPad pad;
    EventFrame open;
    int nextProperty = 0;
    int nextKey = 0;
    for (std::string line; std::getline(text, line);) {
        if (line.size() < 3 || line[1] != ':') {
            continue;
        }
        std::istringstream fields(line.substr(2));
        switch (line[0]) {
        case 'N':
            std::getline(fields >> std::ws, pad.shape.name);
            break;
        case 'I':
            readIdentity(fields, pad.shape);
            break;
        case 'P':
            addBits(fields, nextProperty, pad.shape.properties);
            nextProperty += 64;
            break;
        case 'B':
            readBits(fields, nextKey, pad.shape);
            break;
        case 'A':
            readAxis(fields, pad.shape);
            break;
        case 'E':
            readEvent(fields, open, pad.frames);
            break;
        default:
            break;
        }
    }
    return pad;
}

std::filesystem::path descriptionOf(const std::filesystem::path& recording) {
    std::ifstream own(recording);
    if (readRecordedPad(own).shape.described()) {
        return recording;
    }
    const std::string name = recording.stem().string();
    std::filesystem::path best;
    for (const auto& entry : std::filesystem::directory_iterator(recording.parent_path())) {
        const std::filesystem::path& path = entry.path();
        if (path.extension() == ".desc" && name.starts_with(path.stem().string()) &&
            path.stem().string().size() > best.stem().string().size()) {
            best = path;
        }
    }
    return best;
}

RecordedPad readRecordedPad(const std::filesystem::path& recording) {
    std::ifstream events(recording);
    RecordedPad pad = readRecordedPad(events);
    if (!pad.shape.described()) {
        std::ifstream description(descriptionOf(recording));
        pad.shape = readRecordedPad(description).shape;
    }
    return pad;
}

} // namespace glidemap::test
