// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_OUTCOME_H
#define OVL_GALLERY_OUTCOME_H

#include <QString>

#include <optional>
#include <utility>

namespace ovl::gallery {

/** What reading a file came to: a value, or the problem in words for the user. */
template <class Value> class Outcome {
public:
    Outcome(Value&& result)
        : content(std::move(result))
    {
    }

    static Outcome failure(const QString& problem)
    {
        Outcome outcome;
        outcome.text = problem;
        return outcome;
    }

    explicit operator bool() const { return content.has_value(); }
    /** Only where there is one. */
    Value& value() { return *content; }
    /** Why there is no value; empty where there is one. */
    const QString& problem() const { return text; }

private:
    Outcome() = default;

    std::optional<Value> content;
    QString text;
};

} // namespace ovl::gallery

#endif
