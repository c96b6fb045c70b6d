#include "desktops/x_client.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>

namespace glidemap::test {

namespace {

std::string hostName() {
    std::array<char, 256> name{};
    gethostname(name.data(), name.size() - 1);
    return name.data();
}

} // namespace

XClient::XClient(const XServer& server)
    : program({{GLIDEMAP_X_CLIENT}, server.environment(), folder.path() / "log"}),
      identifier(static_cast<std::uint32_t>(std::stoul(program.nextLine().value_or("0")))) {}

void XClient::obey(const std::string& line) {
    program.writeLine(line);
    EXPECT_EQ(program.nextLine(), "done") << line;
}

void XClient::setNumbers(const std::string& property, const std::string& numbers) {
    obey("numbers " + property + " " + numbers);
}

void XClient::setAtoms(const std::string& property, const std::string& names) {
    obey("atoms " + property + " " + names);
}

void XClient::setText(const std::string& property, const std::string& text) {
    repeatText(property, text, 1);
}

void XClient::repeatText(const std::string& property, const std::string& text, int times) {
    obey("text " + property + " " + std::to_string(times) + " " + text);
}

void XClient::useRoot() {
    obey("root");
}

void XClient::map() {
    obey("map");
}

void XClient::activate() {
    obey("activate");
}

void XClient::wander() {
    obey("wander");
}

void XClient::destroy() {
    obey("destroy");
}

void XClient::grabServer() {
    obey("grab");
}

void XClient::ungrabServer() {
    obey("ungrab");
}

void XClient::describe(const std::string& instance, const std::string& name) {
    setText("WM_CLASS", instance + "\\0" + name + "\\0");
    setText("WM_CLIENT_MACHINE", hostName());
    setNumbers("_NET_WM_PID", std::to_string(process()));
}

} // namespace glidemap::test
