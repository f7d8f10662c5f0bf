#pragma once

#include "model/channel.h"
#include "model/id_set.h"

#include <variant>

namespace quenoria {

enum class Collection;

/// Records of these contacts changed: what was sent, a comment, a template, a file.
struct ContactsChanged {
    Collection collection;
    IdSet ids;
};

/// These contacts were ticked for the next run of a channel, or unticked.
struct SelectionChanged {
    Channel channel;
    IdSet ids;
};

/// The merged list is another: contacts came, went or are shown otherwise.
struct ListReshaped {};

/// The templates of a channel changed, of which the texts stand in many rows.
struct TemplatesChanged {
    Channel channel;
};

struct DepartmentsChanged {};

/// The recipients counted in some month changed.
struct QuotaChanged {};

/// The number for test messages changed.
struct TestNumberChanged {};

/// What is different in the store once it is announced.
using Change = std::variant<ContactsChanged, SelectionChanged, ListReshaped, TemplatesChanged,
                            DepartmentsChanged, QuotaChanged, TestNumberChanged>;

/// What a subscriber does about each kind of change, for std::visit(). There is no handler for
/// the rest: a new kind does not compile before every subscriber has decided about it.
///     std::visit(Following{[this](const DepartmentsChanged &) { refresh(); },
///                          Ignoring<ListReshaped, QuotaChanged, …>()}, change);
template <typename... Handlers>
struct Following : Handlers... {
    using Handlers::operator()...;
};
template <typename... Handlers>
Following(Handlers...) -> Following<Handlers...>;

template <typename Kind>
struct IgnoringOne {
    void operator()(const Kind &) const {}
};

/// The kinds that a subscriber does not follow, by name.
template <typename... Kinds>
struct Ignoring : IgnoringOne<Kinds>... {
    using IgnoringOne<Kinds>::operator()...;
};

} // namespace quenoria
