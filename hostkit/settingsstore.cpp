#include "settingsstore.h"

#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QVariant>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace hostkit {

namespace {

constexpr qint64 mostBytes = 16 * 1024 * 1024;

bool fail(QString* error, const QString& why)
{
    if (error)
        *error = why;
    return false;
}

/** A write is only buffered, and closing does not tell whether the rest got out. */
bool writeAll(QFileDevice& file, const QByteArray& bytes)
{
    return file.write(bytes) == bytes.size() && file.flush();
}

/** What is there and no file, a terminal or a pipe say, has nothing to lose and must not be replaced. */
bool isOther(const QString& fileName)
{
    const QFileInfo info(fileName);
    return info.exists() && !info.isFile() && !info.isDir();
}

} // namespace

bool saveBytes(const QString& fileName, const QByteArray& bytes, QString* error)
{
    if (isOther(fileName)) {
        QFile other(fileName);
        const bool written = other.open(QIODevice::WriteOnly) && writeAll(other, bytes);
        return written || fail(error, other.errorString());
    }
    QSaveFile file(fileName);
    const bool written = file.open(QIODevice::WriteOnly) && writeAll(file, bytes) && file.commit();
    return written || fail(error, file.errorString());
}

bool saveText(const QString& fileName, const QString& text, QString* error)
{
    return saveBytes(fileName, text.toUtf8(), error);
}

bool loadText(const QString& fileName, QString* text, QString* error)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return fail(error, file.errorString());
    const QByteArray bytes = file.read(mostBytes + 1);
    if (file.error() != QFileDevice::NoError)
        return fail(error, file.errorString());
    if (bytes.size() > mostBytes)
        return fail(error, QObject::tr("larger than 16 MiB"));
    *text = QString::fromUtf8(bytes);
    return true;
}

ConfigurationStore::ConfigurationStore(const QString& fileName, QObject* parent)
    : QObject(parent)
    , m_fileName(fileName)
{
    m_saveSoon.setSingleShot(true);
    connect(&m_saveSoon, &QTimer::timeout, this, &ConfigurationStore::save);
    m_loading = true;
    load();
    m_loading = false;
}

ConfigurationStore::~ConfigurationStore()
{
    save();
}

void ConfigurationStore::load()
{
    QString text;
    if (!loadText(m_fileName, &text))
        return;
    QXmlStreamReader reader(text);
    if (!reader.readNextStartElement())
        return;
    while (reader.readNextStartElement()) {
        const QByteArray name = reader.attributes().value(QLatin1String("name")).toLatin1();
        const QString value = reader.readElementText();
        if (!name.isEmpty() && !reader.hasError())
            setProperty(name.constData(), value);
    }
}

bool ConfigurationStore::event(QEvent* event)
{
    if (event->type() == QEvent::DynamicPropertyChange && !m_loading) {
        m_changed = true;
        m_saveSoon.start(0);
    }
    return QObject::event(event);
}

bool ConfigurationStore::save()
{
    if (!m_changed)
        return true;
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    writer.writeStartElement(QStringLiteral("Configuration"));
    const QList<QByteArray> names = dynamicPropertyNames();
    for (const QByteArray& name : names) {
        writer.writeStartElement(QStringLiteral("Property"));
        writer.writeAttribute(QStringLiteral("name"), QString::fromLatin1(name));
        writer.writeCharacters(property(name.constData()).toString());
        writer.writeEndElement();
    }
    writer.writeEndDocument();
    if (!saveText(m_fileName, text.trimmed() + QLatin1Char('\n')))
        return false;
    m_changed = false;
    return true;
}

} // namespace hostkit
