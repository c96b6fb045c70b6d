#include "doubles/core_foundation_objects.h"
#include "doubles/journal.h"

#include <gtest/gtest.h>

#include <mutex>
#include <utility>

namespace glidemap::doubles {

namespace {

std::recursive_mutex guard;
std::set<const Object*> living;

} // namespace

Object::Object(std::string made) : kind(std::move(made)) {
    const std::lock_guard lock(guard);
    living.insert(this);
}

Object::~Object() {
    const std::lock_guard lock(guard);
    living.erase(this);
}

Object* objectOf(CFTypeRef reference) {
    const std::lock_guard lock(guard);
    auto* object = static_cast<Object*>(const_cast<void*>(reference));
    if (!living.contains(object)) {
        ADD_FAILURE() << "used after its last owner has let go of it, or never made: " << reference;
        return nullptr;
    }
    return object;
}

std::multiset<std::string> livingObjects() {
    const std::lock_guard lock(guard);
    std::multiset<std::string> kinds;
    for (const Object* object : living) {
        kinds.insert(object->kind);
    }
    return kinds;
}

} // namespace glidemap::doubles

using namespace glidemap::doubles;

CFTypeRef CFRetain(CFTypeRef reference) {
    if (Object* object = objectOf(reference)) {
        ++object->owners;
    }
    return reference;
}

void CFRelease(CFTypeRef reference) {
    Object* object = objectOf(reference);
    if (object != nullptr && --object->owners == 0) {
        delete object;
    }
}
