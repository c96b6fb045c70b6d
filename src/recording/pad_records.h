// Turns the kernel events of a foreign recording into records: a report for each frame that changed
// a contact, then the buttons of the same moment.
//
// Units:   as in recording/record.h.
// Thread:  one; holds no lock.
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

    // Call only after take() has answered false.
    void handle(const InputEvent& event);

    // Puts the next record of the events so far into `record`, or answers that there is none.
    bool take(Record& record);

private:
    ContactAssembler assembler;
    const PadFrame* frame = nullptr; // being taken
    bool reportTaken = false;
    std::size_t buttonsTaken = 0;
};

} // namespace glidemap
