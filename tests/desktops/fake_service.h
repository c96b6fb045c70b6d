// A fake service on a test's bus. It has the interface of a real service and records its calls.
//
// The journal has lines "NAME.METHOD(ARGUMENTS)", "NAME get PROPERTY" and "NAME set PROPERTY
// VALUE", where NAME is the last part of the bus name. The line "NAME: no callers left" follows
// when the last caller has left the bus, after all its calls.
//
// Thread:  created and destroyed on the test's thread; replies on its own thread.
// Owner:   a test; destroy it before its bus.
#pragma once

#include "desktops/journal.h"
#include "platform/linux/desktop/desktop_thread.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

using GVariant = struct _GVariant;

namespace glidemap::test {

struct ServiceDescription {
    // Returns the reply's tuple as a floating reference, or null for an error.
    using Method = std::function<GVariant*()>;

    std::string name;
    std::string path;
    std::string interfaces; // introspection XML, without the root node
    // The methods with their own replies. Clients may call them as soon as the name is owned. All
    // other methods reply with an empty tuple.
    std::map<std::string, Method> methods = {};
    // The initial values, set before the name is owned.
    std::map<std::string, bool> properties = {};
    std::map<std::string, std::string> texts = {};
};

class FakeService {
public:
    using Method = ServiceDescription::Method;

    FakeService(const std::string& address, ServiceDescription description, Journal& record);
    FakeService(const FakeService&) = delete;
    FakeService& operator=(const FakeService&) = delete;
    ~FakeService();

    // Call these functions before the first client calls the method.
    void answer(const std::string& method, Method how);
    void refuse(const std::string& method);
    void keepSilent(const std::string& method);

    // A boolean property is false until the test or a client sets it. Only setAndAnnounce()
    // announces the change, from the object at `path`.
    void set(const std::string& property, bool value);
    void setText(const std::string& property, const std::string& value);
    void setAndAnnounce(const std::string& property, bool value, const std::string& interface,
                        const std::string& path);
    bool property(const std::string& name) const;

    // Sends a signal from the service's object; consumes the tuple `values`.
    void announce(const std::string& interface, const std::string& signal, GVariant* values);

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap::test
