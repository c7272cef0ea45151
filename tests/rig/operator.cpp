#include "operator.h"

#include <hostkit/formrows.h>
#include <valueframework/valuebase.h>

#include <QAbstractSpinBox>
#include <QPushButton>
#include <QTest>

Operator::~Operator()
{
    leave(0);
}

QString Operator::prepare(const QString& address, const QString& form)
{
    radio::CommandLine commandLine;
    commandLine.rigctld = address;
    commandLine.form = form;
    commandLine.model = RIG_MODEL_DUMMY;
    QString error;
    session.prepare(commandLine, &error);
    return error;
}

void Operator::show(std::shared_ptr<radio::RigDevice> device)
{
    if (device)
        session.device = std::move(device);
    window = std::make_unique<radio::Window>(session.model.title(), session.form, session.device);
    window->link().link().setPauses(20, 100);
    window->show();
}

bool Operator::leave(int wait)
{
    m_records.clear();
    const bool ended = !window || window->link().link().stop(wait);
    window.reset();
    session = radio::Session();
    return ended;
}

QString Operator::shown(const QString& path) const
{
    return hostkit::shownText(*session.form, path);
}

hostkit::RowState Operator::state(const QString& path) const
{
    return window->link().states().state(path);
}

QAbstractSpinBox* Operator::box(const QString& name) const
{
    return window->findChild<QAbstractSpinBox*>(name);
}

bool Operator::type(const QString& name, const QString& keys) const
{
    QAbstractSpinBox* const field = box(name);
    if (!field)
        return false;
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, keys);
    return true;
}

void Operator::apply() const
{
    QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("applyButton")), Qt::LeftButton);
}

void Operator::watch(const QString& path)
{
    values::ValueBase* const value = session.form->GetVTValue(path);
    Record& record = m_records[path];
    record.observer.onUpdate = [value, &record](Observable*, TChangeCode code) {
        if (code == 3)
            record.texts.append(value->GetStringValue());
    };
    record.observer.watch(value);
}

QStringList Operator::seen(const QString& path) const
{
    const auto record = m_records.find(path);
    return record == m_records.end() ? QStringList() : record->second.texts;
}
