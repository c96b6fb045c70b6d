// A service on a test's bus that speaks a real interface and keeps what it is asked.
//
// In the journal: "NAME.METHOD(ARGUMENTS)", "NAME get PROPERTY" and "NAME set PROPERTY VALUE", where
// NAME is the last word of its bus name; "NAME: nobody asks" when the last who asked has left the
// bus, and with that has said all that it will.
//
// Thread:  made and destroyed on the test's; answers on one of its own.
// Owner:   a test; before the bus it is on ends.
#pragma once

#include "linux_session/journal.h"
#include "platform/linux/windows/desktop_thread.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

using GVariant = struct _GVariant;

namespace glidemap::test {

struct ServiceDescription {
    // The answer's tuple, a floating one, or null for an error.
    using Method = std::function<GVariant*()>;

    std::string name;
    std::string path;
    std::string interfaces; // as introspection data, without the node around it
    // For who is asked as soon as it is there; one that is not given answers with an empty tuple.
    std::map<std::string, Method> methods = {};
    // As it has them when its name comes.
    std::map<std::string, bool> properties = {};
    std::map<std::string, std::string> texts = {};
};

class BusDouble {
public:
    using Method = ServiceDescription::Method;

    BusDouble(const std::string& address, ServiceDescription description, Journal& record);
    BusDouble(const BusDouble&) = delete;
    BusDouble& operator=(const BusDouble&) = delete;
    ~BusDouble();

    // To be given before anyone asks.
    void answer(const std::string& method, Method how);
    void refuse(const std::string& method);
    void keepSilent(const std::string& method);

    // A property of the interface is false until it is set, by the test or by the bus. Announced
    // from `path`, if that is given.
    void set(const std::string& property, bool value);
    void setText(const std::string& property, const std::string& value);
    void setAndAnnounce(const std::string& property, bool value, const std::string& interface,
                        const std::string& path);
    bool property(const std::string& name) const;

    // A signal from the service's object; `values` is a tuple, and taken.
    void announce(const std::string& interface, const std::string& signal, GVariant* values);

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap::test
