#include "zorvasheetui.h"

#include "formwindow_p.h"

#include <layout/floatscrollarea.h>
#include <zorvaparser/rowwatch_p.h>
#include <zorvaparser/textsize_p.h>
#include <zorvaparser/zorvasheet.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QVBoxLayout>
#include <QXmlStreamWriter>

#include <utility>

namespace Orvane {

namespace {

const QLatin1String attributePrefix("Attribute_");
constexpr int shortestAutoApply = 100; // milliseconds
constexpr int defaultAutoApply = 1000; // milliseconds

} // namespace

ZorvaSheetUi::ZorvaSheetUi(ZorvaSheet* owningSheet)
    : ZorvaDelegate(owningSheet)
    , autoApplyTimer(nullptr)
    , autoApplyEnabled(false)
{
}

ZorvaSheetUi::~ZorvaSheetUi()
{
    delete autoApplyTimer;
}

void ZorvaSheetUi::CreateGUI(bool createApplyUi)
{
    if (sheetWidget)
        return;
    autoApplyEnabled = GetBool("autoApplyEnabled", true);
    FloatScrollArea* const area = createApplyUi ? CreateWithApplyBar() : CreateBare();
    area->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(area, &QWidget::customContextMenuRequested, this, &ZorvaSheetUi::showContextMenu);
    new FormWindow(sheetWidget, area->widget(), applyButtonBox); // which the top widget owns
    delete std::exchange(autoApplyTimer, nullptr);               // of an earlier window
    if (createApplyUi || autoApplyEnabled)
        CreateTimer();
}

FloatScrollArea* ZorvaSheetUi::CreateScrollArea(QWidget* parent, const QString& contentName)
{
    auto* const area = new FloatScrollArea(parent);
    auto* const content = new QWidget;
    content->setObjectName(contentName);
    content->installEventFilter(this);
    area->setWidget(content);
    layout = new FloatGroupLayout(area);
    return area;
}

FloatScrollArea* ZorvaSheetUi::CreateWithApplyBar()
{
    sheetWidget = new QWidget;
    sheetWidget->setObjectName(QStringLiteral("sheet"));
    auto* const vertical = new QVBoxLayout(sheetWidget);
    vertical->setContentsMargins(0, 0, 0, 0);
    FloatScrollArea* const area = CreateScrollArea(sheetWidget, QStringLiteral("sheetArea"));
    vertical->addWidget(area);
    CreateApplyBar();
    vertical->addWidget(applyButtonBox);
    return area;
}

void ZorvaSheetUi::CreateApplyBar()
{
    applyButtonBox = new QWidget(sheetWidget);
    applyButtonBox->setObjectName(QStringLiteral("applyButtonBox"));
    applyButtonBox->setAccessibleName(tr("Apply"));
    auto* const horizontal = new QHBoxLayout(applyButtonBox);
    horizontal->setContentsMargins(0, 0, 0, 0);

    applyButton = new QPushButton;
    applyButton->setObjectName(QStringLiteral("applyButton"));
    applyButton->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    applyButton->setEnabled(modified);
    horizontal->addWidget(applyButton);
    connect(applyButton, &QPushButton::pressed, this, &ZorvaSheetUi::applyNow);

    autoApply = new QCheckBox;
    autoApply->setObjectName(QStringLiteral("autoApply"));
    autoApply->setChecked(autoApplyEnabled);
    horizontal->addWidget(autoApply);
    connect(autoApply, &QCheckBox::clicked, this, &ZorvaSheetUi::setAutoApplyEnabled);
    Retranslate();
}

void ZorvaSheetUi::Retranslate()
{
    if (applyButton)
        applyButton->setText(tr("Apply"));
    if (autoApply)
        autoApply->setText(tr("Auto Apply"));
}

bool ZorvaSheetUi::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
        GetSheet()->Retranslate();
    }
    return ZorvaDelegate::eventFilter(watched, event);
}

FloatScrollArea* ZorvaSheetUi::CreateBare()
{
    FloatScrollArea* const area = CreateScrollArea(nullptr, QString());
    // Without a bar the area is the sheet, and it bears the name.
    area->setObjectName(QStringLiteral("sheetArea"));
    sheetWidget = area;
    return area;
}

void ZorvaSheetUi::CreateTimer()
{
    delete autoApplyTimer;
    // A nameless child: tools that drive forms find it, scripts do not.
    autoApplyTimer = new QTimer(this);
    autoApplyTimer->setSingleShot(true);
    autoApplyTimer->setInterval(qMax(GetInt("autoApplyTimeout", defaultAutoApply), shortestAutoApply));
    connect(autoApplyTimer, &QTimer::timeout, this, &ZorvaSheetUi::applyNow);
}

void ZorvaSheetUi::WriteRootStart(QXmlStreamWriter& writer)
{
    const QString type = PropertyText("parametersXmlTypeAttribute");
    writer.writeStartElement(GetString("parametersXmlRootTag", QStringLiteral("Parameters")));
    if (!type.isEmpty())
        writer.writeAttribute(QStringLiteral("type"), type);
    for (const QString& name : qAsConst(attributeProperties))
        writer.writeAttribute(name.mid(attributePrefix.size()),
                              VariantText(property(name.toLatin1().constData())));
}

void ZorvaSheetUi::ParseProperties(QXmlStreamReader& reader, bool custom)
{
    ZorvaDelegate::ParseProperties(reader, custom);
    if (!custom)
        return;
    attributeProperties.clear();
    for (auto entry = customProperties.cbegin(); entry != customProperties.cend(); ++entry) {
        if (entry.key().startsWith(attributePrefix))
            attributeProperties.append(entry.key());
    }
}

void ZorvaSheetUi::EnableInput(bool enable, bool)
{
    if (applyButtonBox)
        applyButtonBox->setEnabled(enable);
}

void ZorvaSheetUi::applyNow()
{
    if (modified)
        Raise(&ZorvaSheetUi::si_parametersModified);
}

void ZorvaSheetUi::emitParametersXml()
{
    Raise(&ZorvaSheetUi::si_parametersModified);
}

void ZorvaSheetUi::emitParametersXml(bool)
{
    applyNow();
}

void ZorvaSheetUi::killAutoApplyTimer()
{
    if (autoApplyTimer)
        autoApplyTimer->stop();
}

void ZorvaSheetUi::setApplyUiVisible(bool visible)
{
    ChangeProperty("applyUiVisible", visible);
}

void ZorvaSheetUi::setAutoApplyEnabled(bool enable)
{
    ChangeProperty("autoApplyEnabled", enable);
}

void ZorvaSheetUi::setAutoApplyTimeout(int timeout)
{
    ChangeProperty("autoApplyTimeout", timeout);
}

void ZorvaSheetUi::setEmitOnlyModifiedParameters(bool onlyModified)
{
    ChangeProperty("emitOnlyModifiedParameters", onlyModified);
}

void ZorvaSheetUi::setErrorHighlightingXmlRootTag(QString rootTag)
{
    ChangeProperty("errorHighlightingXmlRootTag", rootTag);
}

void ZorvaSheetUi::setQMBaseName(QString qmBaseName)
{
    ChangeProperty("qmBaseName", qmBaseName);
}

void ZorvaSheetUi::setTranslationsSubDir(QString subDir)
{
    ChangeProperty("translationsSubDir", subDir);
}

void ZorvaSheetUi::setVisible(bool visible)
{
    setProperty("visible", visible);
    if (sheetWidget)
        sheetWidget->setVisible(visible);
}

void ZorvaSheetUi::setModified(bool autoApplying)
{
    if (!modified) {
        modified = true;
        // Without a bar nobody can press Apply: the first change announces itself.
        if (applyButton)
            applyButton->setEnabled(true);
        else if (!Raise(&ZorvaSheetUi::si_parametersModified))
            return;
    }
    if (autoApplying && autoApplyEnabled && autoApplyTimer)
        autoApplyTimer->start();
}

void ZorvaSheetUi::resetModified()
{
    if (!modified)
        return;
    modified = false;
    if (applyButton)
        applyButton->setEnabled(false);
    killAutoApplyTimer();
}

void ZorvaSheetUi::showContextMenu(QPoint pt)
{
    if (!sheetWidget)
        return;
    const int normal = normalTextSize();
    const int current = shownTextSize(*sheetWidget);
    QMenu menu;
    QMenu* const sizes = menu.addMenu(tr("Text size"));
    const auto addSize = [&](const QString& text, int size) {
        auto* const action = new QAction(text, &menu);
        action->setCheckable(true);
        action->setChecked(size == current);
        action->setData(size);
        sizes->addAction(action);
    };
    // Measured from the application's font, so that repeated choices do not creep.
    addSize(tr("Normal"), normal);
    addSize(tr("Medium"), normal + 2);
    addSize(tr("Large"), normal + 4);
    connect(sizes, &QMenu::triggered, this, &ZorvaSheetUi::chooseFont);
    const RowWatch row(*this);
    menu.exec(sheetWidget->mapToGlobal(pt));
}

void ZorvaSheetUi::chooseFont(QAction* pAction)
{
    if (pAction)
        Raise(&ZorvaSheetUi::si_chooseFontSize, pAction->data().toInt());
}

void ZorvaSheetUi::resetModifiedParameter(QObject*) {}

void ZorvaSheetUi::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    if (name != QLatin1String("autoApplyEnabled"))
        return;
    autoApplyEnabled = value.toBool();
    if (autoApply && autoApply->isChecked() != autoApplyEnabled)
        autoApply->setChecked(autoApplyEnabled);
}

} // namespace Orvane
