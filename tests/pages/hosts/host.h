#ifndef ZORVA_TESTS_PAGES_HOST_H
#define ZORVA_TESTS_PAGES_HOST_H

#include <zorvaparser/zorvaformular.h>

class Device : public QObject
{
public:
    void send(const QString& parameters) { sent = parameters; }
    QString sent;
};

#define HOST_HAS                                                                                             \
    [[maybe_unused]] QExplicitlySharedDataPointer<Orvane::ZorvaFormular> form,                               \
        [[maybe_unused]] Orvane::ZorvaFormular *formular, [[maybe_unused]] Device *device,                   \
        [[maybe_unused]] const QString &overlayText

#endif
