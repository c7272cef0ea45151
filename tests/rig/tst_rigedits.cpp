#include "livetest.h"

#include <QRandomGenerator>

#include <valueframework/valuenumeric.h>
#include <valueframework/valueselection.h>
#include <zorvaparser/zorvadelegate.h>

using hostkit::RowState;

/// Edits from both sides, at the form and by a second client, in any order:
/// in the end form and radio say the same.
class TestRigEdits : public LiveTest
{
    Q_OBJECT

    QRandomGenerator m_random;
    QStringList m_paths;

    QString randomText(const QString& path)
    {
        const auto row = hostkit::rowOf(*m_session.form, path);
        values::ValueBase* const value = row->GetDelegate()->GetVTValue();
        if (const auto* const number = dynamic_cast<values::IValueNumeric*>(value)) {
            const int steps = static_cast<int>(qMin(1000.0, number->GetMax() - number->GetMin()));
            return QString::number(number->GetMin() + m_random.bounded(steps + 1), 'f', 0);
        }
        if (const auto* const choice = dynamic_cast<values::ValueSelection*>(value)) {
            const auto choices = m_session.form->GetEnum(row->GetDelegate()->property("enumName").toString());
            return choices->GetValueAt(m_random.bounded(int(choice->GetItemCount()))).GetValue();
        }
        return QString::number(m_random.bounded(2));
    }

    void editAtTheForm(const QString& path, const QString& text)
    {
        const auto row = hostkit::rowOf(*m_session.form, path);
        values::ValueBase* const value = row->GetDelegate()->GetVTValue();
        if (auto* const choice = dynamic_cast<values::ValueSelection*>(value)) {
            const auto choices = m_session.form->GetEnum(row->GetDelegate()->property("enumName").toString());
            choice->Select(choices->FindValue(text, nullptr).GetDisplayName(), nullptr);
        } else {
            value->SetStringValue(text, nullptr);
        }
        m_session.form->applyNow();
    }

    void editAtTheRadio(RigctlClient& client, const radio::Parameter& parameter, const QString& text)
    {
        const char* const kind = parameter.call == radio::Call::Level      ? "level"
                                 : parameter.call == radio::Call::Function ? "func"
                                                                           : "parm";
        const QStringList answer = client.ask(
            QStringLiteral("set_%1 %2 %3").arg(QLatin1String(kind), parameter.word, parameter.toRadio(text)));
        QCOMPARE(answer, QStringList{QStringLiteral("RPRT 0")});
    }

    QString atTheRadio(RigctlClient& client, const radio::Parameter& parameter)
    {
        const char* const kind = parameter.call == radio::Call::Level      ? "level"
                                 : parameter.call == radio::Call::Function ? "func"
                                                                           : "parm";
        return parameter.toForm(
            client.value(QStringLiteral("get_%1 %2").arg(QLatin1String(kind), parameter.word)));
    }

    static bool isSettled(RowState state)
    {
        return state == RowState::Confirmed || state == RowState::Differing;
    }

private Q_SLOTS:
    void formAndRadioEndEqual()
    {
        const int edits = qEnvironmentVariableIntValue("ZORVA_RIG_EDITS");
        const quint32 seed = 20240229;
        m_random.seed(seed);
        startDaemon();
        openWindow(m_daemon->address());
        RigctlClient client;
        QVERIFY(client.open(m_daemon->port()));

        QList<radio::Parameter> parameters;
        const QList<radio::Parameter> all = radio::parametersOf(*m_session.model.capabilities);
        for (const radio::Parameter& parameter : all) {
            const bool direct = parameter.call == radio::Call::Level ||
                                parameter.call == radio::Call::Function ||
                                parameter.call == radio::Call::Setting;
            if (direct && parameter.look != radio::Look::Reading)
                parameters.append(parameter);
        }
        QVERIFY(parameters.size() > 80);

        for (int i = 0; i < (edits > 0 ? edits : 300); ++i) {
            const radio::Parameter& parameter = parameters.at(m_random.bounded(parameters.size()));
            const QString text = randomText(parameter.path);
            if (m_random.bounded(2) == 0)
                editAtTheForm(parameter.path, text);
            else
                editAtTheRadio(client, parameter, text);
            if (m_random.bounded(4) == 0)
                QCoreApplication::processEvents();
        }
        for (const radio::Parameter& parameter : qAsConst(parameters)) {
            const QByteArray path = parameter.path.toLatin1();
            QTRY_VERIFY2_WITH_TIMEOUT(isSettled(state(path.constData())), path.constData(), longTime);
            QTRY_COMPARE_WITH_TIMEOUT(shown(path.constData()).toDouble(),
                                      atTheRadio(client, parameter).toDouble(), longTime);
        }
        // The independent client agrees.
        const QString volume = m_daemon->rigctl({QStringLiteral("l"), QStringLiteral("AF")});
        QVERIFY(qAbs(volume.toDouble() * 100 - shown("Level/AF").toDouble()) < 0.051);
        closeAll();
    }
};

QTEST_MAIN(TestRigEdits)

#include "tst_rigedits.moc"
