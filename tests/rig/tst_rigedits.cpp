#include "livetest.h"

#include <QHash>
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

    static QString command(const radio::Parameter& parameter)
    {
        switch (parameter.call) {
        case radio::Call::Level:
            return QStringLiteral("level ") + parameter.word;
        case radio::Call::Function:
            return QStringLiteral("func ") + parameter.word;
        case radio::Call::Setting:
            return QStringLiteral("parm ") + parameter.word;
        default:
            return directCommands().value(parameter.path);
        }
    }

    /// Commands of what is read and written as one word.
    static QHash<QString, QString> directCommands()
    {
        return {{QStringLiteral("Tuning/Frequency"), QStringLiteral("freq")},
                {QStringLiteral("Tuning/VFO"), QStringLiteral("vfo")},
                {QStringLiteral("Tuning/Step"), QStringLiteral("ts")},
                {QStringLiteral("Tuning/RIT"), QStringLiteral("rit")},
                {QStringLiteral("Tuning/XIT"), QStringLiteral("xit")},
                {QStringLiteral("Tuning/RepeaterShift"), QStringLiteral("rptr_shift")},
                {QStringLiteral("Tuning/RepeaterOffset"), QStringLiteral("rptr_offs")},
                {QStringLiteral("Mode/Mode"), QStringLiteral("mode")},
                {QStringLiteral("Tone/CTCSS"), QStringLiteral("ctcss_tone")},
                {QStringLiteral("Tone/CTCSSSquelch"), QStringLiteral("ctcss_sql")},
                {QStringLiteral("Tone/DCS"), QStringLiteral("dcs_code")},
                {QStringLiteral("Tone/DCSSquelch"), QStringLiteral("dcs_sql")}};
    }

    void editAtTheRadio(RigctlClient& client, const radio::Parameter& parameter, const QString& text)
    {
        QString line = QStringLiteral("set_%1 %2").arg(command(parameter), parameter.toRadio(text));
        if (parameter.isMode())
            line += QLatin1String(" 0");
        const QString answer = client.ask(line).join(QLatin1Char(' '));
        QVERIFY2(answer == QLatin1String("RPRT 0"), qPrintable(line + QStringLiteral(" -> ") + answer));
    }

    QString atTheRadio(RigctlClient& client, const radio::Parameter& parameter)
    {
        return commonName(parameter.toForm(client.value(QStringLiteral("get_") + command(parameter))));
    }

    /// Of the dummy's two names for each of its first VFOs, one.
    static QString commonName(const QString& text)
    {
        static const QHash<QString, QString> names{{QStringLiteral("Main"), QStringLiteral("VFOA")},
                                                   {QStringLiteral("Sub"), QStringLiteral("VFOB")}};
        return names.value(text, text);
    }

    static bool isSettled(RowState state)
    {
        return state == RowState::Confirmed || state == RowState::Differing;
    }

private Q_SLOTS:
    void formAndRadioEndEqual()
    {
        const int edits = qEnvironmentVariableIntValue("ZORVA_RIG_EDITS");
        const int given = qEnvironmentVariableIntValue("ZORVA_RIG_SEED");
        const quint32 seed = given > 0 ? quint32(given) : 20240229;
        m_random.seed(seed);
        startDaemon();
        openWindow(m_daemon->address());
        RigctlClient client;
        QVERIFY(client.open(m_daemon->port()));

        QList<radio::Parameter> parameters;
        const QList<radio::Parameter> all = radio::parametersOf(*m_session.model.capabilities);
        for (const radio::Parameter& parameter : all) {
            if (parameter.look != radio::Look::Reading && !command(parameter).isEmpty())
                parameters.append(parameter);
        }
        QVERIFY(parameters.size() > 100);

        for (int i = 0; i < (edits > 0 ? edits : 1000); ++i) {
            const radio::Parameter& parameter = parameters.at(m_random.bounded(parameters.size()));
            const QString text = randomText(parameter.path);
            // On its other VFOs the dummy does not take modes.
            if (parameter.call == radio::Call::Vfo && text != QLatin1String("VFOA") &&
                text != QLatin1String("VFOB"))
                continue;
            if (m_random.bounded(2) == 0)
                editAtTheForm(parameter.path, text);
            else
                editAtTheRadio(client, parameter, text);
            if (QTest::currentTestFailed())
                return closeAll();
            if (m_random.bounded(4) == 0)
                QCoreApplication::processEvents();
        }
        for (const radio::Parameter& parameter : qAsConst(parameters)) {
            const QByteArray path = parameter.path.toLatin1();
            QTRY_VERIFY2_WITH_TIMEOUT(isSettled(state(path.constData())), path.constData(), longTime);
            const auto areEqual = [&] {
                return hostkit::saysTheSame(commonName(shown(path.constData())),
                                            atTheRadio(client, parameter));
            };
            QTRY_VERIFY2_WITH_TIMEOUT(areEqual(), path.constData(), longTime);
        }
        // The independent client agrees.
        const QString volume = m_daemon->rigctl({QStringLiteral("l"), QStringLiteral("AF")});
        QVERIFY(qAbs(volume.toDouble() * 100 - shown("Level/AF").toDouble()) < 0.051);
        closeAll();
    }
};

QTEST_MAIN(TestRigEdits)

#include "tst_rigedits.moc"
