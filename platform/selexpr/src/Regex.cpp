#include "Regex.h"

#include <re2/re2.h>

namespace ui::selexpr {

namespace {

re2::RE2::Options GetOptions() {
    re2::RE2::Options options;
    options.set_log_errors(false);
    options.set_never_capture(true);
    options.set_max_mem(1 << 20);
    return options;
}

class Re2Regex : public Regex {
public:
    explicit Re2Regex(qzString const& pattern) : m_expression(pattern, GetOptions()) {}

    bool IsValid() const { return m_expression.ok(); }
    qzString const& GetFailure() const { return m_expression.error(); }

    bool Finds(std::string_view text) const override {
        return m_expression.Match({text.data(), text.size()}, 0, text.size(), re2::RE2::UNANCHORED, nullptr,
                                  0);
    }

private:
    re2::RE2 m_expression;
};

} // namespace

std::unique_ptr<Regex> Regex::Compile(qzString const& pattern, qzString& failure) {
    auto regex = std::make_unique<Re2Regex>(pattern);
    if (regex->IsValid())
        return regex;
    failure = regex->GetFailure();
    return nullptr;
}

} // namespace ui::selexpr
