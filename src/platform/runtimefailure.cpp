#include "platform/runtimefailure.h"

QString RuntimeError::description() const
{
    switch (m_code) {
    case Overflow:
        return QStringLiteral("溢出");
    case OutOfMemory:
        return QStringLiteral("内存不足");
    case SubscriptOutOfRange:
        return QStringLiteral("下标越界");
    case TypeMismatch:
        return QStringLiteral("类型不匹配");
    case IndexOutOfBounds:
        return QStringLiteral("索引超出范围");
    }
    return QStringLiteral("应用程序定义的错误");
}

const char* RuntimeError::what() const noexcept
{
    switch (m_code) {
    case Overflow:
        return "overflow";
    case OutOfMemory:
        return "out of memory";
    case SubscriptOutOfRange:
        return "subscript out of range";
    case TypeMismatch:
        return "type mismatch";
    case IndexOutOfBounds:
        return "index out of bounds";
    }
    return "run-time error";
}

QString runtimeFailureReport(const RuntimeError& error)
{
    return QStringLiteral("运行时错误 '%1':\n\n%2").arg(int(error.code())).arg(error.description());
}

void endWithRuntimeFailure(MessageService& messages, ProcessControl& process, const RuntimeError& error)
{
    messages.show(MessageIcon::Critical, runtimeFailureReport(error));
    process.endProcess(1);
}
