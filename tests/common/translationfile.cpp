#include "translationfile.h"

#include <QDataStream>
#include <QMap>

namespace {

quint32 hashOf(const QByteArray& text)
{
    quint32 hash = 0;
    for (const char c : text) {
        hash = (hash << 4) + static_cast<uchar>(c);
        hash = (hash ^ ((hash & 0xf0000000) >> 24)) & 0x0fffffff;
    }
    return qMax(hash, 1U);
}

} // namespace

QByteArray translationFile(const QList<Message>& messages, const QByteArray& furtherSection)
{
    QByteArray texts;
    QDataStream textStream(&texts, QIODevice::WriteOnly);
    QMultiMap<quint32, quint32> offsets; // by hash: they are searched
    for (const Message& message : messages) {
        offsets.insert(hashOf(message.source + message.comment), quint32(texts.size()));
        textStream << quint8(3) << message.translation << quint8(8) << message.comment << quint8(6)
                   << message.source << quint8(7) << message.context << quint8(1);
    }
    QByteArray hashes;
    QDataStream hashStream(&hashes, QIODevice::WriteOnly);
    for (auto at = offsets.constBegin(); at != offsets.constEnd(); ++at)
        hashStream << at.key() << at.value();
    QByteArray file = QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd");
    QDataStream fileStream(&file, QIODevice::Append);
    fileStream << quint8(0x42) << hashes << quint8(0x69) << texts;
    return file + furtherSection;
}
