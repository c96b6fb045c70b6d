// Converts the kernel events of an evemu or libinput recording into records: a report for each
// frame that changed a contact, then the button changes of the frame.
//
// Units:   as in recording/record.h.
// Thread:  one; takes no lock.
// Owner:   the recording's reader.
// Errors:  none; impossible events are ignored.
#pragma once

#include "drivers/contact/contact_assembler.h"
#include "recording/record.h"

#include <cstddef>

namespace glidemap {

class PadRecords {
public:
    explicit PadRecords(const PadDescription& pad) : assembler(pad) {}

    // Call only after take() has returned false.
    void handle(const InputEvent& event);

    // Moves the next record of the handled events into `record`, or returns false if no record is
    // left.
    bool take(Record& record);

private:
    ContactAssembler assembler;
    const PadFrame* frame = nullptr; // the frame whose records take() returns
    bool reportTaken = false;
    std::size_t buttonsTaken = 0;
};

} // namespace glidemap
