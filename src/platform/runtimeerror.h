#pragma once

#include <QByteArray>
#include <QString>

#include <exception>
#include <new>
#include <system_error>

namespace ovrano {

/// Numbers of the run-time errors; their French descriptions are in one table (descriptionOf). "Throws
/// error::DiskFull" in a comment means a RuntimeError of that number.
namespace error {
inline constexpr int InvalidCall = 5;
inline constexpr int Overflow = 6;
inline constexpr int OutOfMemory = 7;
inline constexpr int TypeMismatch = 13;
inline constexpr int BadFileName = 52;
inline constexpr int FileNotFound = 53;
inline constexpr int FileAlreadyOpen = 55;
inline constexpr int DeviceIo = 57;
inline constexpr int FileAlreadyExists = 58;
inline constexpr int DiskFull = 61;
inline constexpr int PermissionDenied = 70;
inline constexpr int PathFileAccess = 75;
inline constexpr int PathNotFound = 76;
inline constexpr int InvalidPropertyValue = 380;
inline constexpr int InvalidPicture = 481;
inline constexpr int Cancelled = 32755;
} // namespace error

/// The one exception type of the program: a run-time error's number and its French description.
class RuntimeError : public std::exception {
public:
    explicit RuntimeError(int number);
    /// With a description of its own in place of the table's.
    RuntimeError(int number, QString description);

    int number() const { return m_number; }
    const QString& description() const { return m_description; }
    const char* what() const noexcept override { return m_what.constData(); }

    /// The description of a number, never empty: unknown numbers share one text.
    static QString descriptionOf(int number);

    /// What the operating system reported, as the run-time error that tells a user the same.
    static RuntimeError fromSystem(const std::error_code& code);
    static RuntimeError fromErrno(int code);

private:
    int m_number;
    QString m_description;
    QByteArray m_what;
};

/// Runs one step of a procedure that goes on whatever happens to a step: a run-time error (and running
/// out of memory) is swallowed. Tells whether the step came through.
template<typename Step>
bool skipOnError(Step&& step) {
    try {
        step();
        return true;
    } catch (const RuntimeError&) {
        return false;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace ovrano
