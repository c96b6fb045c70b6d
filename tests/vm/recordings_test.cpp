// Plays every recording of a real touchpad into the kernel. The driver must report the same
// contacts as the program's reader of the file.

#include "driver_session.h"
#include "recorded_pad.h"
#include "recording/recording_reader.h"
#include "recordings.h"
#include "virtual_pad.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace glidemap::test {
namespace {

struct Row {
    const char* file;
    std::size_t reports;  // 0: the driver ignores the device
    std::size_t contacts; // counts different identifiers
};

std::ostream& operator<<(std::ostream& output, const Row& row) {
    return output << row.file;
}

// The counts follow from the events. Reports: one per frame that changes a contact. Contacts: one
// per tracking id that appears in an empty slot, and one per finger that is only counted and has no
// slot.
const Row rows[] = {
    // Tablets that track many fingers.
    {"tablets/Wacom Bamboo 16FG 4x5 Finger double-center-circle.events", 419, 2},
    {"tablets/Wacom Bamboo 16FG 4x5 Finger double-center-scroll.events", 112, 2},
    {"tablets/Wacom Bamboo 16FG 4x5 Finger double-tap-center.events", 8, 2},
    {"tablets/Wacom Bamboo 16FG 4x5 Finger double-tap.events", 5, 2},
    {"tablets/Wacom Bamboo 16FG 4x5 Finger double-top-swipe.events", 187, 2},
    {"tablets/Wacom Bamboo 16FG 4x5 Finger single-center-circle.events", 376, 1},
    {"tablets/Wacom Bamboo 16FG 4x5 Finger single-center-scroll.events", 96, 1},
    {"tablets/Wacom Bamboo 16FG 4x5 Finger single-top-swipe.events", 97, 1},
    {"tablets/Wacom Intuos5 touch M Finger double-center-circle.events", 392, 2},
    {"tablets/Wacom Intuos5 touch M Finger double-center-scroll.events", 122, 2},
    {"tablets/Wacom Intuos5 touch M Finger double-tap-center.events", 8, 2},
    {"tablets/Wacom Intuos5 touch M Finger double-tap.events", 5, 2},
    {"tablets/Wacom Intuos5 touch M Finger double-top-swipe.events", 216, 2},
    {"tablets/Wacom Intuos5 touch M Finger single-center-circle.events", 351, 1},
    {"tablets/Wacom Intuos5 touch M Finger single-center-scroll.events", 126, 1},
    {"tablets/Wacom Intuos5 touch M Finger single-top-swipe.events", 131, 1},
    // A touchscreen.
    {"tablets/Wacom ISDv4 E6 Finger.2fg-double-tap.events", 0, 0},
    {"tablets/Wacom ISDv4 E6 Finger.2fg-tap.events", 0, 0},
    {"tablets/Wacom ISDv4 E6 Finger.double-center-circle.events", 0, 0},
    {"tablets/Wacom ISDv4 E6 Finger.double-center-scroll.events", 0, 0},
    {"tablets/Wacom ISDv4 E6 Finger.double-tap-center.events", 0, 0},
    {"tablets/Wacom ISDv4 E6 Finger.double-top-swipe.events", 0, 0},
    {"tablets/Wacom ISDv4 E6 Finger.single-center-circle.events", 0, 0},
    {"tablets/Wacom ISDv4 E6 Finger.single-center-scroll.events", 0, 0},
    {"tablets/Wacom ISDv4 E6 Finger.single-tap-center.events", 0, 0},
    {"tablets/Wacom ISDv4 E6 Finger.single-top-swipe.events", 0, 0},
    // Touchpads that report one position and have no slots.
    {"touchpads/AlpsPS2-ALPS-DualPoint-TouchPad-non-MT.doubletap.events", 0, 0},
    {"touchpads/AlpsPS2-ALPS-DualPoint-TouchPad-non-MT.tap.events", 0, 0},
    {"touchpads/SynPS2 Synaptics TouchPad-fdo23890.events", 0, 0},
    // A touchpad without slots: each frame lists all fingers, in arbitrary order.
    {"touchpads/bcm5974.three-finger-click.events", 0, 0},
    // Touchpads with two or more slots. Several report the corners of a bounding box, and the
    // Cypress touchpad counts a third finger without a slot.
    {"touchpads/AlpsPS2 ALPS GlidePoint.2-finger-tap.events", 7, 2},
    {"touchpads/AlpsPS2 ALPS GlidePoint.double-tap.events", 15, 2},
    {"touchpads/AlpsPS2 ALPS GlidePoint.right-edge-scroll.events", 55, 1},
    {"touchpads/AlpsPS2 ALPS GlidePoint.single-tap.events", 8, 1},
    {"touchpads/AlpsPS2-ALPS-DualPoint-TouchPad.events", 444, 1},
    {"touchpads/CyPS2 Cypress Trackpad.three_finger_press.events", 46, 3},
    {"touchpads/CyPS2 Cypress Trackpad.three_finger_tap.events", 6, 3},
    {"touchpads/CyPS2 Cypress Trackpad.two_finger_press.events", 37, 2},
    {"touchpads/CyPS2 Cypress Trackpad.two_finger_tap.events", 8, 2},
    {"touchpads/ETPS2 Elantech Touchpad.Samsung-700Z3A.events", 297, 2},
    {"touchpads/ETPS2 Elantech Touchpad.events", 299, 3},
    {"touchpads/SynPS2 Synaptics TouchPad-with-scrollbuttons.events", 55, 2},
    {"touchpads/SynPS2 Synaptics TouchPad.button-rpress.events", 34, 1},
    {"touchpads/SynPS2 Synaptics TouchPad.events", 1292, 45},
    {"touchpads/SynPS2 Synaptics TouchPad.fdo48777-reproducer.events", 549, 2},
    {"touchpads/SynPS2 Synaptics TouchPad.hp8470p.edge-scroll-horizontal.events", 676, 5},
    {"touchpads/SynPS2 Synaptics TouchPad.hp8470p.edge-scroll-vertical.events", 191, 1},
    {"touchpads/SynPS2 Synaptics TouchPad.hp8470p.two-finger-scroll-horizontal.events", 139, 8},
    {"touchpads/SynPS2 Synaptics TouchPad.hp8470p.two-finger-scroll-vertical.events", 110, 1},
    {"touchpads/SynPS2 Synaptics TouchPad.leftmove.events", 312, 1},
    {"touchpads/SynPS2 Synaptics TouchPad.two-finger-vert-scroll.events", 78, 2},
};

std::vector<SeenContacts> reportsInFile(const std::filesystem::path& path) {
    std::vector<SeenContacts> reports;
    const auto reader = openRecordingFile(path, path.filename().string());
    for (Record record; reader->next(record);) {
        if (const auto* report = std::get_if<Report>(&record)) {
            reports.push_back(seenContacts(report->touches));
        }
    }
    if (reader->error()) {
        ADD_FAILURE() << text(*reader->error());
    }
    return reports;
}

std::size_t contactsIn(const std::vector<SeenContacts>& reports) {
    std::set<std::int32_t> identifiers;
    for (const SeenContacts& report : reports) {
        for (const SeenContact& contact : report) {
            identifiers.insert(contact.identifier);
        }
    }
    return identifiers.size();
}

// Shows only the first difference, because the complete lists are very long.
void expectSameReports(const std::vector<SeenContacts>& fromKernel,
                       const std::vector<SeenContacts>& fromFile) {
    EXPECT_EQ(fromKernel.size(), fromFile.size());
    for (std::size_t index = 0; index < std::min(fromKernel.size(), fromFile.size()); ++index) {
        ASSERT_EQ(fromKernel[index], fromFile[index]) << "report " << index;
    }
}

class RecordingTest : public testing::TestWithParam<Row> {};

TEST_P(RecordingTest, TouchpadAndRecordingFileYieldTheSameReports) {
    GLIDEMAP_NEEDS_RECORDINGS();
    const Row& row = GetParam();
    const std::filesystem::path path = recordingsFolder() / row.file;
    const RecordedPad recorded = readRecordedPad(path);
    ASSERT_FALSE(recorded.frames.empty());

    VirtualPad pad(shapeToday(recorded));
    ASSERT_TRUE(pad.isPlugged());
    DriverSession session;
    if (row.reports == 0) {
        EXPECT_FALSE(session.isRunning());
        EXPECT_EQ(session.loadError(), "未找到多点触摸设备");
        EXPECT_EQ(session.unreadableTouchpads(), 0);
        return;
    }
    ASSERT_TRUE(session.isRunning()) << session.loadError().value_or("");
    session.play(pad, recorded.frames);

    const auto seen = session.seen();
    const auto reports = seen.reportsOf(session.settle(pad));
    ASSERT_EQ(reports.size(), seen.reports.size());
    expectSameReports(reports, reportsInFile(path));
    EXPECT_EQ(reports.size(), row.reports);
    EXPECT_EQ(contactsIn(reports), row.contacts);
}

INSTANTIATE_TEST_SUITE_P(Recordings, RecordingTest, testing::ValuesIn(rows),
                         [](const auto& instance) { return testName(instance.param.file); });

TEST(RecordingsTest, EachRecordingHasATestRow) {
    GLIDEMAP_NEEDS_RECORDINGS();
    std::set<std::string> named;
    for (const Row& row : rows) {
        named.insert(row.file);
    }
    EXPECT_EQ(named, recordingsEndingIn(".events"));
}

} // namespace
} // namespace glidemap::test
