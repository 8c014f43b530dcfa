#include "platform/runtimeerror.h"

#include <cerrno>
#include <utility>

namespace ovrano {

namespace {

struct Description {
    int number;
    const char* text;
};

constexpr Description Descriptions[] = {
    {error::InvalidCall, "Appel de procédure ou argument incorrect"},
    {error::Overflow, "Dépassement de capacité"},
    {error::OutOfMemory, "Mémoire insuffisante"},
    {error::TypeMismatch, "Type incompatible"},
    {error::BadFileName, "Nom de fichier incorrect"},
    {error::FileNotFound, "Fichier introuvable"},
    {error::FileAlreadyOpen, "Fichier déjà ouvert"},
    {error::DeviceIo, "Erreur d'entrée/sortie du périphérique"},
    {error::FileAlreadyExists, "Ce fichier existe déjà"},
    {error::DiskFull, "Disque plein"},
    {error::PermissionDenied, "Permission refusée"},
    {error::PathFileAccess, "Erreur d'accès au chemin ou au fichier"},
    {error::PathNotFound, "Chemin d'accès introuvable"},
    {error::InvalidPropertyValue, "Valeur de propriété incorrecte"},
    {error::InvalidPicture, "Image incorrecte : ce fichier ne peut pas être lu comme une image"},
    {error::Cancelled, "Opération annulée"},
};

struct SystemError {
    int code;
    int number;
};

constexpr SystemError SystemErrors[] = {
    {ENOENT, error::FileNotFound},      {ENOTDIR, error::PathNotFound},
    {EACCES, error::PermissionDenied},  {EPERM, error::PermissionDenied},
    {EROFS, error::PermissionDenied},   {ETXTBSY, error::PermissionDenied},
    {EBUSY, error::PermissionDenied},   {EISDIR, error::PathFileAccess},
    {ENOTEMPTY, error::PathFileAccess}, {ELOOP, error::PathFileAccess},
    {EXDEV, error::PathFileAccess},     {EMFILE, error::PathFileAccess},
    {ENFILE, error::PathFileAccess},    {ENAMETOOLONG, error::BadFileName},
    {EINVAL, error::BadFileName},       {EEXIST, error::FileAlreadyExists},
    {ENOSPC, error::DiskFull},          {EDQUOT, error::DiskFull},
    {EFBIG, error::DiskFull},           {ENOMEM, error::OutOfMemory},
};

} // namespace

RuntimeError::RuntimeError(int number)
    : RuntimeError(number, descriptionOf(number)) {}

RuntimeError::RuntimeError(int number, QString description)
    : m_number(number)
    , m_description(std::move(description))
    , m_what(QByteArray::number(number) + ' ' + m_description.toUtf8()) {}

QString RuntimeError::descriptionOf(int number) {
    for (const Description& description : Descriptions)
        if (description.number == number)
            return QString::fromUtf8(description.text);
    return QStringLiteral("Erreur définie par l'application");
}

RuntimeError RuntimeError::fromSystem(const std::error_code& code) {
    return fromErrno(code.default_error_condition().value());
}

RuntimeError RuntimeError::fromErrno(int code) {
    for (const SystemError& known : SystemErrors)
        if (known.code == code)
            return RuntimeError(known.number);
    return RuntimeError(error::DeviceIo);
}

} // namespace ovrano
