#pragma once

#include "platform/raster.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QStringList>

#include <memory>
#include <utility>

namespace ovrano {

/// What another program offers on the clipboard: types in its own order, each with its bytes. A type with no
/// bytes is announced and not given.
class OtherProgram : public QMimeData {
public:
    using Offers = QList<std::pair<QString, QByteArray>>;

    /// Notes the types that are asked for in `asked`, the oldest first.
    OtherProgram(Offers offers, std::shared_ptr<QStringList> asked)
        : m_offers(std::move(offers))
        , m_asked(std::move(asked)) {}

    QStringList formats() const override {
        QStringList types;
        for (const auto& offer : m_offers)
            types.append(offer.first);
        return types;
    }

protected:
    QVariant retrieveData(const QString& type, QMetaType) const override {
        m_asked->append(type);
        for (const auto& offer : m_offers)
            if (offer.first == type && !offer.second.isEmpty())
                return offer.second;
        return QVariant();
    }

private:
    Offers m_offers;
    std::shared_ptr<QStringList> m_asked;
};

/// Puts another program's data on the clipboard; gives the types that are asked for from then on.
inline std::shared_ptr<QStringList> offer(const OtherProgram::Offers& offers) {
    auto asked = std::make_shared<QStringList>();
    QGuiApplication::clipboard()->setMimeData(new OtherProgram(offers, asked));
    return asked;
}

inline QByteArray asPng(const QImage& image) {
    QBuffer buffer;
    image.save(&buffer, "png");
    return buffer.data();
}

/// Another program has copied a picture.
inline void offerPicture(const Raster& picture) {
    offer({{QStringLiteral("image/png"), asPng(picture.toImage())}});
}

} // namespace ovrano
