// Checking what a piece of work throws by its message: EXPECT_THROW_MSG(statement, Exception, "message")
// expects the statement to throw an Exception whose what() is the message, and an empty message expects it
// to return normally. Any other exception fails the test as an exception thrown in its body.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace testsupport
{

// The message of the Exception that work throws, or "" when it returns normally.
template <typename Exception, typename Work>
std::string ThrownMessage(Work&& work)
{
    try
    {
        std::forward<Work>(work)();
    }
    catch (const Exception& error)
    {
        return error.what();
    }
    return "";
}

} // namespace testsupport

#define EXPECT_THROW_MSG(statement, Exception, message)                                                      \
    EXPECT_EQ(std::string(message), ::testsupport::ThrownMessage<Exception>([&] { statement; }))
