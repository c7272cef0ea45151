#include "parameterspane.h"

#include "previewform.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QVBoxLayout>

namespace Orvane {
namespace Author {

ParametersPane::ParametersPane(QWidget* parent)
    : QWidget(parent)
    , m_selection(new QComboBox(this))
    , m_text(new QPlainTextEdit(this))
{
    m_selection->setObjectName(QStringLiteral("parametersSelection"));
    m_selection->setAccessibleName(QStringLiteral("Which parameters are shown"));
    m_selection->addItems(
        {QStringLiteral("All"), QStringLiteral("Changed only"), QStringLiteral("Last applied")});
    m_text->setObjectName(QStringLiteral("parametersText"));
    m_text->setAccessibleName(QStringLiteral("Parameter XML"));
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setPlaceholderText(QStringLiteral("Nothing to send"));
    auto* const lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->addWidget(m_selection);
    lines->addWidget(m_text, 1);
    setFocusProxy(m_selection);
    connect(m_selection, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &ParametersPane::selectionChanged);
}

void ParametersPane::show(const PreviewForm* form)
{
    QString text;
    if (m_selection->currentIndex() == Applied)
        text = m_applied;
    else if (form)
        text = form->parameters(m_selection->currentIndex() == Changed);
    if (text == m_text->toPlainText())
        return;
    const int place = m_text->verticalScrollBar()->value();
    m_text->setPlainText(text);
    m_text->verticalScrollBar()->setValue(place);
}

} // namespace Author
} // namespace Orvane
