#include "zorvaparser.h"

#include <zorvaparser/zorvaformular.h>

#include <QFile>
#include <QXmlStreamReader>

#include <memory>

namespace Orvane {

ZorvaFormular* ZorvaParser::ParseZORVA(QXmlStreamReader& reader)
{
    // Of several roots in a wrapper the last one counts.
    std::unique_ptr<ZorvaFormular> formular;
    while (!reader.atEnd() && reader.readNextStartElement()) {
        // Any other element is walked into: the root may stand inside a wrapper.
        if (reader.name() != QLatin1String("KVParamGui"))
            continue;
        formular = std::make_unique<ZorvaFormular>();
        formular->ParseZORVA(reader);
    }
    return formular.release();
}

ZorvaFormular* ZorvaParser::ParseZORVA(const QByteArray& bytes)
{
    QXmlStreamReader reader(bytes);
    return ParseZORVA(reader);
}

ZorvaFormular* ZorvaParser::ParseZORVA(const QString& text)
{
    QXmlStreamReader reader(text);
    return ParseZORVA(reader);
}

ZorvaFormular* ZorvaParser::ParseZORVAFile(const QString& fileName)
{
    QByteArray bytes;
    QFile file(fileName);
    if (!fileName.isEmpty() && file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        bytes = file.readAll();
        file.close();
    }
    return bytes.isEmpty() ? nullptr : ParseZORVA(bytes);
}

} // namespace Orvane
