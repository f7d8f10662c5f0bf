#pragma once

#include "platform/applescript/script_object.h"

#include <vector>

namespace quenoria::applescript {

struct Expression;
struct Property;
using ExpressionRef = std::unique_ptr<Expression>;

struct Literal {
    Value value;
};

/// A variable or, inside `tell …`, a property of the object that is told.
struct Name {
    QString name;
};

/// `application "Messages"`
struct Application {
    QString name;
};

/// `first service whose service type is RCS`
struct FirstService {
    QString type;
};

/// `buddy handle of service`
struct Buddy {
    ExpressionRef handle;
    ExpressionRef service;
};

/// `POSIX file path as alias`
struct FileAlias {
    ExpressionRef path;
};

/// `make new element at place with properties {…}`
struct Make {
    QString element;
    QString place;
    std::vector<Property> properties;
};

/// `a & b & c`: flat, since a text of many lines is joined from as many pieces.
struct Concatenation {
    std::vector<Expression> pieces;
};

/// `a is b`, `a is not b`
struct Comparison {
    ExpressionRef left;
    ExpressionRef right;
    bool negated = false;
};

/// `a and b and c`
struct Conjunction {
    std::vector<Expression> terms;
};

struct Expression {
    std::variant<Literal, Name, Application, FirstService, Buddy, FileAlias, Make, Concatenation,
                 Comparison, Conjunction>
        node;
};

/// `label:value`
struct Property {
    QString label;
    Expression value;
};

struct Statement;
using Block = std::vector<Statement>;

struct Assignment {
    QString name;
    Expression value;
};

struct Tell {
    Expression target;
    Block body;
};

/// Without `on error` the handler is empty and the error is forgotten.
struct Try {
    Block body;
    std::optional<QString> messageName;
    std::optional<QString> numberName;
    Block handler;
};

struct If {
    Expression condition;
    Block body;
    Block otherwise;
};

struct Raise {
    std::optional<Expression> message;
    std::optional<Expression> number;
};

struct Send {
    Expression what;
    std::optional<Expression> recipient;
};

struct Delay {
    Expression seconds;
};

struct Activate {};

struct Statement {
    std::variant<Assignment, Tell, Try, If, Raise, Send, Delay, Activate, Expression> node;
};

} // namespace quenoria::applescript
