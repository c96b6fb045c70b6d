#include "recording/pad_records.h"

namespace glidemap {

void PadRecords::handle(const InputEvent& event) {
    frame = assembler.handle(event);
    reportTaken = false;
    buttonsTaken = 0;
}

bool PadRecords::take(Record& record) {
    if (frame == nullptr) {
        return false;
    }
    if (frame->contactsChanged && !reportTaken) {
        reportTaken = true;
        auto* report = std::get_if<Report>(&record);
        if (report == nullptr) {
            report = &record.emplace<Report>();
        }
        report->time = frame->timestamp;
        report->touches.assign(frame->contacts.begin(), frame->contacts.end());
        return true;
    }
    if (buttonsTaken < frame->buttons.size()) {
        const ButtonChange& change = frame->buttons[buttonsTaken++];
        record = ButtonRecord{frame->timestamp, change.button, change.down};
        return true;
    }
    frame = nullptr;
    return false;
}

} // namespace glidemap
