#ifndef ZORVA_RIG_MODELS_H
#define ZORVA_RIG_MODELS_H

#include <QList>
#include <QString>

#include <hamlib/rig.h>

namespace radio {

/** A radio that Hamlib knows. */
struct Model
{
    rig_model_t number = 0;
    QString maker;
    QString name;
    QString status;                         ///< how far Hamlib trusts its own driver
    const rig_caps* capabilities = nullptr; ///< Hamlib's, for the life of the program

    QString title() const { return maker + QLatin1Char(' ') + name; }
};

/** Those whose number, maker or name contains @p pattern, in any case; all for an empty one. By number. */
QList<Model> models(const QString& pattern = QString());
/** False if there is none of that number. */
bool findModel(rig_model_t number, Model* model);

} // namespace radio

#endif
