#pragma once

#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <typeinfo>

/// The course of one EXPECT_THROWS: the run, then the look at what it threw.
struct ThrowExpectation {
    static std::string describe(const std::type_info& type, const std::string& text) {
        return std::string(type.name()) + " \"" + text + "\"";
    }

    int step = 0;
    std::string thrown = "nothing";
};

/// Demands that an expression throws an exception of exactly the class, no derived one, with exactly the text. Takes
/// more output like an assertion of GoogleTest. No lambda, because that could not use structured bindings.
#define EXPECT_THROWS(statement, ExceptionClass, text)                                                                 \
    for (ThrowExpectation course; course.step < 2; ++course.step)                                                      \
        if (course.step == 0)                                                                                          \
            try {                                                                                                      \
                static_cast<void>(statement);                                                                          \
            } catch (const std::exception& exception) {                                                                \
                course.thrown = ThrowExpectation::describe(typeid(exception), exception.what());                       \
            }                                                                                                          \
        else                                                                                                           \
            EXPECT_EQ(course.thrown, ThrowExpectation::describe(typeid(ExceptionClass), text)) << #statement "\n"
