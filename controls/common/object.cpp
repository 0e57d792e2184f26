#include "corvex/common/object.h"

#include <algorithm>
#include <atomic>

#include "corvex/common/font.h"
#include "corvex/common/text.h"

namespace corvex {

namespace {

// Objects are made and dropped on any thread that hosts a form; the count is read by the
// unload check.
std::atomic<std::size_t> liveObjects{0};

}  // namespace

Object::Object() {
    ++liveObjects;
}

Object::Object(const Object& other) : std::enable_shared_from_this<Object>(other) {
    ++liveObjects;
}

Object::~Object() {
    --liveObjects;
}

std::size_t Object::liveCount() {
    return liveObjects.load();
}

ClassInfo::ClassInfo(std::u16string name, ClassKind kind, std::vector<MemberInfo> members,
                     std::vector<EventInfo> events, Factory factory,
                     std::pair<float, float> defaultSize, std::vector<SavedInfo> unpublishedSaved)
    : name_(std::move(name)),
      kind_(kind),
      members_(std::move(members)),
      events_(std::move(events)),
      factory_(std::move(factory)),
      defaultSize_(defaultSize),
      unpublishedSaved_(std::move(unpublishedSaved)) {}

ClassInfo& ClassInfo::withPropertyPages(std::vector<std::u16string> pages) {
    propertyPages_ = std::move(pages);
    return *this;
}

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

const MemberInfo* ClassInfo::memberById(int dispId) const {
    for (const auto& m : members_) {
        if (m.dispId == dispId) return &m;
    }
    return nullptr;
}

namespace {
std::vector<const MemberInfo*> savedSorted(const std::vector<MemberInfo>& members,
                                           int SavedInfo::*order) {
    std::vector<const MemberInfo*> out;
    for (const auto& m : members) {
        if (m.saved) out.push_back(&m);
    }
    std::stable_sort(out.begin(), out.end(), [order](const MemberInfo* a, const MemberInfo* b) {
        return (*a->saved).*order < (*b->saved).*order;
    });
    return out;
}
}  // namespace

std::vector<const MemberInfo*> ClassInfo::savedInWriteOrder() const {
    return savedSorted(members_, &SavedInfo::writeOrder);
}

std::vector<const MemberInfo*> ClassInfo::savedInReadOrder() const {
    return savedSorted(members_, &SavedInfo::readOrder);
}

std::u16string EnumInfo::nameOf(std::int32_t value) const {
    for (const auto& [n, v] : members) {
        if (v == value) return n;
    }
    return {};
}

Variant SavedInfo::defaultFor(const FontDesc& ambient) const {
    if (ambientFont) return Variant(ObjectRef(Font::make(ambient)));
    return defaultValue;
}

std::shared_ptr<Object> ClassInfo::create(ControlSite& site) const {
    if (!factory_) throw Error(err::MemberNotFound, u"Class " + name_ + u" cannot be created");
    return factory_(site);
}

namespace {
Variant convertTo(const Variant& v, VarType type) {
    switch (type) {
        case VarType::Boolean:
            return Variant(v.toBoolean());
        case VarType::Integer:
            return Variant(v.toInteger());
        case VarType::Long:
            return Variant(v.toLong());
        case VarType::Single:
            return Variant(v.toSingle());
        case VarType::Double:
            return Variant(v.toDouble());
        case VarType::String:
            return Variant(v.toString());
        case VarType::Object:
            return Variant(v.toObject());
        case VarType::Empty:
            break;
    }
    return v;
}

// A by-reference parameter of a declared kind receives the caller's argument converted
// to that kind, and the caller sees the converted value afterwards, as the host passes a
// typed argument by reference.
void convertByRefArgs(const std::vector<ParamInfo>& params, std::span<Variant> args) {
    for (std::size_t i = 0; i < args.size() && i < params.size(); ++i) {
        if (params[i].byRef && params[i].type != VarType::Empty) {
            args[i] = convertTo(args[i], params[i].type);
        }
    }
}
}  // namespace

Variant invoke(Object& object, std::u16string_view name, CallKind kind, std::span<Variant> args,
               const Variant& value) {
    object.checkAvailable();
    const MemberInfo* m = object.classInfo().member(name);
    if (!m) throw Error(err::MemberNotFound);
    switch (kind) {
        case CallKind::Method:
        case CallKind::Get:
            if (!m->get) throw Error(err::GetNotSupported);
            convertByRefArgs(m->params, args);
            return m->get(object, args);
        case CallKind::Let:
        case CallKind::Set: {
            if (m->isMethod) throw Error(err::WrongArguments);
            // An object value goes through set, any other through let; a property that
            // has only the other one refuses the assignment.
            const auto& setter = value.type() == VarType::Object ? (m->set ? m->set : m->let)
                                                                 : (m->let ? m->let : m->set);
            if (!setter) throw Error(err::SetNotSupported);
            // The table says which properties are design-time only; the rule is applied
            // here, once, for every caller that goes by name.
            if (m->designTimeOnly) object.requireDesignTime();
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

bool isValueObject(const Object& object) {
    return object.classInfo().kind() == ClassKind::Value;
}

std::vector<std::pair<std::u16string, Variant>> valueFields(const Object& object) {
    std::vector<std::pair<std::u16string, Variant>> out;
    // A value object's getters do not change it; the table's calls take a plain Object.
    auto& o = const_cast<Object&>(object);
    for (const auto& m : object.classInfo().members()) {
        if (m.readable() && m.params.empty()) out.emplace_back(m.name, m.get(o, {}));
    }
    return out;
}

bool sameObjectValue(const ObjectRef& a, const ObjectRef& b) {
    if (a == b) return true;
    if (!a || !b || &a->classInfo() != &b->classInfo() || !isValueObject(*a)) return false;
    return valueFields(*a) == valueFields(*b);
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
