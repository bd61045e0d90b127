#pragma once

// The failures that routines outside the continue-on-error mode pass on to
// their caller. An event routine that has no handler of its own ends the
// process with the run-time failure report, and nothing is saved. That path is
// one mechanism, runEventRoutine; tests observe it through fake services.

#include "platform/services.h"

#include <QString>

#include <exception>
#include <new>
#include <utility>

class RuntimeError : public std::exception {
public:
    // The runtime's own error numbers, which the report shows.
    enum Code {
        Overflow = 6,
        OutOfMemory = 7,
        SubscriptOutOfRange = 9,
        TypeMismatch = 13,
        IndexOutOfBounds = 35600,
    };

    explicit RuntimeError(Code code) : m_code(code) {}

    Code code() const { return m_code; }
    QString description() const;
    const char* what() const noexcept override;

private:
    Code m_code;
};

// The text of the run-time failure report for this error.
QString runtimeFailureReport(const RuntimeError& error);

// Shows the report as a critical message and ends the process.
void endWithRuntimeFailure(MessageService& messages, ProcessControl& process, const RuntimeError& error);

// Runs an event routine that has no failure handling of its own.
template <class Routine>
void runEventRoutine(MessageService& messages, ProcessControl& process, Routine&& routine)
{
    try {
        std::forward<Routine>(routine)();
    } catch (const RuntimeError& error) {
        endWithRuntimeFailure(messages, process, error);
    } catch (const std::bad_alloc&) {
        // An allocation that fails anywhere below is the runtime's "out of
        // memory", reported like every other unhandled failure.
        endWithRuntimeFailure(messages, process, RuntimeError(RuntimeError::OutOfMemory));
    }
}
