#pragma once
// One environment variable set for the life of a test and given back afterwards, so that a
// test's TMPDIR never leaks into the next test of the same process.
#include <cstdlib>
#include <optional>
#include <string>

namespace ardo::test {

class EnvironmentOverride {
public:
    // Without a value the variable is unset for the test.
    EnvironmentOverride(const char* name, const std::optional<std::string>& value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        if (value) ::setenv(name, value->c_str(), 1);
        else ::unsetenv(name);
    }
    ~EnvironmentOverride() {
        if (old_) ::setenv(name_.c_str(), old_->c_str(), 1);
        else ::unsetenv(name_.c_str());
    }
    EnvironmentOverride(const EnvironmentOverride&) = delete;
    EnvironmentOverride& operator=(const EnvironmentOverride&) = delete;

private:
    std::string name_;
    std::optional<std::string> old_;
};

}  // namespace ardo::test
