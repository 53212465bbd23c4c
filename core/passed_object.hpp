// Arguments of commands that are more than a number: the sender passes the address of an object in lparam.
#pragma once
#include <cstdint>
#include <typeinfo>

namespace core {

// Registers an object as the argument of a command for the length of a scope, which must contain the call.
// Any program can send a command with any number as its address. So a handler uses an address only if it is
// registered at that moment, with the same type. Used on the user-interface thread only.
class PassedObject {
public:
    // `object` must outlive this object.
    template <class Object>
    explicit PassedObject(const Object& object)
        : PassedObject(&object, typeid(Object))
    {
    }
    ~PassedObject() { innermost_ = outer_; }
    PassedObject(const PassedObject&) = delete;
    PassedObject& operator=(const PassedObject&) = delete;

    // For the message.
    std::int64_t lparam() const
    {
        return static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(address_));
    }

    // The registered object; null if there is none of this type at this address.
    template <class Object> static const Object* find(std::int64_t lparam)
    {
        return static_cast<const Object*>(find(lparam, typeid(Object)));
    }

private:
    PassedObject(const void* address, const std::type_info& type)
        : address_(address)
        , type_(type)
        , outer_(innermost_)
    {
        innermost_ = this;
    }

    static const void* find(std::int64_t lparam, const std::type_info& type)
    {
        for (const PassedObject* passed = innermost_; passed; passed = passed->outer_) {
            if (passed->lparam() == lparam && passed->type_ == type)
                return passed->address_;
        }
        return nullptr;
    }

    const void* address_;
    const std::type_info& type_;
    PassedObject* outer_;
    static inline PassedObject* innermost_ = nullptr;
};

} // namespace core
