#include "previewform.h"

#include <zorvaparser/zorvadelegate.h>

#include <QWidget>
#include <QXmlStreamWriter>

namespace Orvane {
namespace Author {

PreviewForm::PreviewForm(const QByteArray& engineBytes, const QString& name)
    : m_live(engineBytes, LiveForm::Read, name)
{
    if (exists())
        m_rows = std::make_unique<FormRows>(form());
}

PreviewForm::~PreviewForm() = default;

void PreviewForm::build(const QString& overlay)
{
    QScriptEngine* const engine = m_live.engine();
    if (engine)
        m_log.listenTo(*engine);
    m_live.bring(LiveForm::Running);
    if (engine)
        m_log.tellUncaught(*engine);
    m_live.bring(LiveForm::Built);
    if (!overlay.isEmpty())
        form().SetChangedZORVA(overlay);
    m_firstParameters = parameters(false);
    m_firstTexts = unsentTexts();
}

QVector<ZorvaDelegate*> PreviewForm::delegates() const
{
    QVector<ZorvaDelegate*> delegates;
    const ZorvaSheet& sheet = form().GetSheet();
    delegates.reserve(sheet.GetWidgetCount());
    for (int i = 0; i < sheet.GetWidgetCount(); ++i)
        delegates.append(sheet.GetWidgetAt(i)->GetDelegate());
    return delegates;
}

// Writing takes the marks off the rows, so they are put back where neither bar nor pause hear of it.
QString PreviewForm::parameters(bool modifiedOnly) const
{
    ZorvaSheet& sheet = form().GetSheet();
    if (modifiedOnly && !sheet.isWidgetModified())
        return QString();
    QVector<ZorvaDelegate*> marked;
    for (ZorvaDelegate* const delegate : delegates()) {
        if (delegate->isModified())
            marked.append(delegate);
    }
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    sheet.GetXml(writer, true, modifiedOnly);
    const bool wasActive = sheet.isActive();
    sheet.setActive(false);
    for (ZorvaDelegate* const delegate : qAsConst(marked))
        delegate->setModified(false);
    sheet.setActive(wasActive);
    return text.trimmed();
}

bool PreviewForm::isChanged() const
{
    return !parameters(true).isNull() || parameters(false) != m_firstParameters;
}

ParameterSet PreviewForm::settings() const
{
    return ParameterSet(rows(), SourceText(parameters(false).toUtf8()));
}

ParameterSet PreviewForm::settingsAtFirst() const
{
    return ParameterSet(rows(), SourceText(m_firstParameters.toUtf8()));
}

QMap<QString, QString> PreviewForm::unsentTexts() const
{
    QMap<QString, QString> texts;
    for (const ZorvaDelegate* const delegate : delegates()) {
        const values::ValueBase* const value =
            delegate->GetBool("generateParameterXml", false) ? nullptr : delegate->GetVTValue();
        if (value)
            texts.insert(delegate->objectName(), value->GetStringValue());
    }
    return texts;
}

} // namespace Author
} // namespace Orvane
