#include "corvex/common/object.h"

#include "corvex/common/text.h"

namespace corvex {

Object::~Object() = default;

ClassInfo::ClassInfo(std::u16string name, ClassKind kind, std::vector<MemberInfo> members,
                     std::vector<EventInfo> events, Factory factory,
                     std::pair<float, float> defaultSize)
    : name_(std::move(name)),
      kind_(kind),
      members_(std::move(members)),
      events_(std::move(events)),
      factory_(std::move(factory)),
      defaultSize_(defaultSize) {}

const MemberInfo* ClassInfo::member(std::u16string_view name) const {
    for (const auto& m : members_) {
        if (equalsIgnoringCase(m.name, name)) return &m;
    }
    return nullptr;
}

const EventInfo* ClassInfo::event(std::u16string_view name) const {
    for (const auto& e : events_) {
        if (equalsIgnoringCase(e.name, name)) return &e;
    }
    return nullptr;
}

std::shared_ptr<Object> ClassInfo::create(ControlSite& site) const {
    if (!factory_) throw Error(err::MemberNotFound, u"Class " + name_ + u" cannot be created");
    return factory_(site);
}

Variant invoke(Object& object, std::u16string_view name, CallKind kind, std::span<Variant> args,
               const Variant& value) {
    object.checkAvailable();
    const MemberInfo* m = object.classInfo().member(name);
    if (!m) throw Error(err::MemberNotFound);
    switch (kind) {
        case CallKind::Method:
        case CallKind::Get:
            if (!m->get) throw Error(err::GetNotSupported);
            return m->get(object, args);
        case CallKind::Let:
        case CallKind::Set: {
            if (m->isMethod) throw Error(err::WrongArguments);
            // An object value goes through set, any other through let; a property that
            // has only the other one refuses the assignment.
            const auto& setter = value.type() == VarType::Object ? (m->set ? m->set : m->let)
                                                                 : (m->let ? m->let : m->set);
            if (!setter) throw Error(err::SetNotSupported);
            setter(object, args, value);
            return Variant();
        }
    }
    return Variant();
}

Variant getProperty(Object& object, std::u16string_view member) {
    return invoke(object, member, CallKind::Get);
}

void letProperty(Object& object, std::u16string_view member, const Variant& value) {
    invoke(object, member, value.type() == VarType::Object ? CallKind::Set : CallKind::Let, {},
           value);
}

namespace detail {

Boolean ArgTraits<Boolean>::from(const Variant& v) {
    // A 16-bit value passed for a Boolean is carried as it is, so that a let can tell
    // True (-1) and False (0) from other numbers; everything else converts.
    switch (v.type()) {
        case VarType::Boolean:
            return v.asBoolean();
        case VarType::Integer:
            return Boolean::fromRaw(v.asInteger());
        case VarType::Long:
            if (v.asLong() >= -32768 && v.asLong() <= 32767) {
                return Boolean::fromRaw(static_cast<std::int16_t>(v.asLong()));
            }
            return v.toBoolean();
        default:
            return v.toBoolean();
    }
}

std::size_t requiredArgs(const std::vector<ParamInfo>& params) {
    std::size_t n = 0;
    for (const auto& p : params) {
        if (!p.optional) ++n;
    }
    return n;
}

void checkArgCount(const std::vector<ParamInfo>& params, std::size_t given) {
    if (given < requiredArgs(params) || given > params.size()) throw Error(err::WrongArguments);
}

}  // namespace detail

EventTable& EventTable::event(std::u16string name, std::vector<ParamInfo> params) {
    EventInfo e;
    e.name = std::move(name);
    e.dispId = static_cast<int>(events_.size()) + 1;
    e.params = std::move(params);
    events_.push_back(std::move(e));
    return *this;
}

EventTable& EventTable::declared(std::u16string name, std::vector<ParamInfo> params) {
    event(std::move(name), std::move(params));
    events_.back().raised = false;
    return *this;
}

}  // namespace corvex
