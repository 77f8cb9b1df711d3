#pragma once

#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <string_view>
#include <typeinfo>

/// The course of one EXPECT_THROWS: a run and, if that did not throw what it should, a report.
template <class Expected> class ThrowExpectation {
public:
    explicit ThrowExpectation(std::string_view text) : text_(text) {}

    /// Begins the next step, if there is one.
    [[nodiscard]] bool next() { return ++step_ == 1 || (step_ == 2 && !isMet_); }
    [[nodiscard]] bool isRun() const { return step_ == 1; }

    /// For the handler around the run.
    void checkCurrentException() {
        try {
            throw;
        } catch (const std::exception& exception) {
            isMet_ = typeid(exception) == typeid(Expected) && exception.what() == text_;
            thrown_ = std::string(typeid(exception).name()) + " \"" + exception.what() + "\"";
        } catch (...) {
            thrown_ = "something that is no std::exception";
        }
    }

    [[nodiscard]] std::string report(std::string_view statement) const {
        return std::string(statement) + "\nshould throw " + typeid(Expected).name() + " \"" + text_ +
               "\"\n but it threw " + thrown_ + "\n";
    }

private:
    std::string text_;
    std::string thrown_ = "nothing";
    int step_ = 0;
    bool isMet_ = false;
};

/// Demands that an expression throws an exception of exactly the class, no derived one, with exactly the text. Takes
/// more output like an assertion of GoogleTest. No lambda, because that could not use structured bindings.
#define EXPECT_THROWS(statement, ExceptionClass, text)                                                                 \
    for (ThrowExpectation<ExceptionClass> throwExpectation(text); throwExpectation.next();)                            \
        if (throwExpectation.isRun())                                                                                  \
            try {                                                                                                      \
                static_cast<void>(statement);                                                                          \
            } catch (...) {                                                                                            \
                throwExpectation.checkCurrentException();                                                              \
            }                                                                                                          \
        else                                                                                                           \
            ADD_FAILURE() << throwExpectation.report(#statement)
