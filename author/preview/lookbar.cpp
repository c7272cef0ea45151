#include "lookbar.h"

#include <author/picture/formstage.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QSpinBox>
#include <QStyle>
#include <QStyleFactory>

namespace Orvane {
namespace Author {

namespace {

constexpr int widthStep = 20;   // pixels
constexpr int styleLength = 12; // letters; the list shows longer names

QSpinBox* makeSpin(int least, int most, int step, int value, const QString& atLeast, const QString& unit)
{
    auto* const spin = new QSpinBox;
    spin->setRange(least, most);
    spin->setSingleStep(step);
    spin->setSpecialValueText(atLeast);
    spin->setSuffix(unit);
    spin->setValue(value);
    spin->setKeyboardTracking(false);
    return spin;
}

/** The present style's name, as the factory spells it. */
int indexOfStyle(const QComboBox& styles, const QString& wanted)
{
    const QString name = wanted.isEmpty() ? QApplication::style()->objectName() : wanted;
    return styles.findText(name, Qt::MatchFixedString);
}

} // namespace

LookBar::LookBar(const PreviewLook& look, const QStringList& languages, QWidget* parent)
    : QToolBar(QStringLiteral("Look"), parent)
    , m_width(makeSpin(0, FormStage::widest, widthStep, look.width, QStringLiteral("window"),
                       QStringLiteral(" px")))
    , m_textSize(makeSpin(FormStage::smallestText - 1, FormStage::largestText, 1, look.textSize,
                          QStringLiteral("form's"), QStringLiteral(" pt")))
    , m_language(new QComboBox)
    , m_style(new QComboBox)
    , m_dark(new QAction(QStringLiteral("&Dark"), this))
    , m_rightToLeft(new QAction(QStringLiteral("&Right to left"), this))
{
    setObjectName(QStringLiteral("lookBar"));
    setAccessibleName(QStringLiteral("Look of the form"));
    m_language->addItem(QStringLiteral("as written"), QString());
    for (const QString& language : languages)
        m_language->addItem(language, language);
    if (!look.language.isEmpty() && m_language->findData(look.language) < 0)
        m_language->addItem(look.language, look.language);
    m_language->setCurrentIndex(m_language->findData(look.language));
    m_style->addItems(QStyleFactory::keys());
    m_style->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_style->setMinimumContentsLength(styleLength);
    m_style->setCurrentIndex(indexOfStyle(*m_style, look.style));
    addSwitch(QStringLiteral("&Width"), m_width, "lookWidth");
    addSwitch(QStringLiteral("&Text size"), m_textSize, "lookTextSize");
    addSwitch(QStringLiteral("&Language"), m_language, "lookLanguage");
    addSwitch(QStringLiteral("&Style"), m_style, "lookStyle");
    for (QAction* const action : {m_dark, m_rightToLeft}) {
        action->setCheckable(true);
        addAction(action);
        if (QWidget* const button = widgetForAction(action))
            button->setFocusPolicy(Qt::TabFocus);
    }
    m_dark->setObjectName(QStringLiteral("lookDark"));
    m_dark->setChecked(look.isDark);
    m_dark->setShortcut(QKeySequence(QStringLiteral("Ctrl+D")));
    m_rightToLeft->setObjectName(QStringLiteral("lookRightToLeft"));
    m_rightToLeft->setChecked(look.isRightToLeft);
    m_rightToLeft->setShortcut(QKeySequence(QStringLiteral("Ctrl+R")));
    const auto number = QOverload<int>::of(&QSpinBox::valueChanged);
    const auto choice = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(m_width, number, this, &LookBar::formLookChanged);
    connect(m_textSize, number, this, &LookBar::formLookChanged);
    connect(m_rightToLeft, &QAction::toggled, this, &LookBar::formLookChanged);
    connect(m_language, choice, this, &LookBar::programLookChanged);
    connect(m_style, choice, this, &LookBar::programLookChanged);
    connect(m_dark, &QAction::toggled, this, &LookBar::programLookChanged);
}

void LookBar::addSwitch(const QString& label, QWidget* widget, const char* name)
{
    // The blank is the distance to the widget, into which a last letter may reach.
    auto* const text = new QLabel(label + QLatin1Char(' '), this);
    text->setContentsMargins(fontMetrics().averageCharWidth(), 0, 0, 0);
    text->setBuddy(widget);
    widget->setObjectName(QString::fromLatin1(name));
    widget->setAccessibleName(QString(label).remove(QLatin1Char('&')));
    addWidget(text);
    addWidget(widget);
}

PreviewLook LookBar::look() const
{
    PreviewLook look;
    look.width = m_width->value();
    look.textSize = m_textSize->value() < FormStage::smallestText ? 0 : m_textSize->value();
    look.language = m_language->currentData().toString();
    look.style = m_style->currentText();
    look.isDark = m_dark->isChecked();
    look.isRightToLeft = m_rightToLeft->isChecked();
    return look;
}

void LookBar::takeFocus()
{
    m_width->setFocus(Qt::ShortcutFocusReason);
}

QStringList languagesBeside(const QString& file)
{
    const QFileInfo info(file);
    const QString start = info.completeBaseName() + QLatin1Char('_');
    QStringList languages;
    const QStringList names = info.absoluteDir().entryList({QStringLiteral("*.qm")}, QDir::Files, QDir::Name);
    for (const QString& name : names) {
        const QString language = name.mid(start.size()).chopped(3);
        if (name.startsWith(start) && QLocale(language).language() != QLocale::C)
            languages << language;
    }
    return languages;
}

} // namespace Author
} // namespace Orvane
