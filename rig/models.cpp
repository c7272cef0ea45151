#include "models.h"

#include <algorithm>

namespace radio {

namespace {

Model modelOf(const rig_caps& capabilities)
{
    Model model;
    model.number = capabilities.rig_model;
    model.maker = QString::fromUtf8(capabilities.mfg_name).trimmed();
    model.name = QString::fromUtf8(capabilities.model_name).trimmed();
    model.status = QString::fromUtf8(rig_strstatus(capabilities.status));
    model.capabilities = &capabilities;
    return model;
}

// Hamlib fills its list at the first call, once a process.
void loadAll()
{
    static const int loaded = [] {
        rig_set_debug(RIG_DEBUG_NONE);
        return rig_load_all_backends();
    }();
    Q_UNUSED(loaded)
}

int append(const rig_caps* capabilities, rig_ptr_t list)
{
    static_cast<QList<Model>*>(list)->append(modelOf(*capabilities));
    return 1; // go on
}

} // namespace

QList<Model> models(const QString& pattern)
{
    loadAll();
    QList<Model> all;
    rig_list_foreach(append, &all);
    QList<Model> matching;
    for (const Model& model : qAsConst(all)) {
        const QString line = QStringLiteral("%1 %2").arg(model.number).arg(model.title());
        if (line.contains(pattern, Qt::CaseInsensitive))
            matching.append(model);
    }
    std::sort(matching.begin(), matching.end(),
              [](const Model& left, const Model& right) { return left.number < right.number; });
    return matching;
}

bool findModel(rig_model_t number, Model* model)
{
    loadAll();
    const rig_caps* const capabilities = rig_get_caps(number);
    if (!capabilities)
        return false;
    *model = modelOf(*capabilities);
    return true;
}

} // namespace radio
