#include "Corvane/settings/customfields.h"

namespace {

const QLatin1Char kFieldSeparator(',');
const QLatin1Char kPartSeparator(':');
const QLatin1Char kTypeSeparator('=');

constexpr int kParts = 3;  // number, name and line type, visible
constexpr int kFirstId = 1;

QStringList fieldTexts(const QVariant &setting)
{
    // A text with commas that was written without quotes comes as a list.
    return setting.toStringList().join(kFieldSeparator).split(kFieldSeparator, Qt::SkipEmptyParts);
}

}  // namespace

std::optional<CustomField> readCustomField(const QString &text)
{
    const QStringList parts = text.split(kPartSeparator);
    if (parts.size() != kParts)
        return std::nullopt;
    const QStringList nameAndType = parts.at(1).split(kTypeSeparator, Qt::SkipEmptyParts);
    if (nameAndType.size() != 2)
        return std::nullopt;

    bool isId = false;
    bool isType = false;
    CustomField field;
    field.id = parts.at(0).toInt(&isId);
    field.name = nameAndType.at(0);
    field.lineType = nameAndType.at(1).toInt(&isType);
    field.visible = parts.at(2).compare(QLatin1String("true"), Qt::CaseInsensitive) == 0;
    if (!isId || !isType)
        return std::nullopt;
    return field;
}

QString customFieldToText(const CustomField &field)
{
    return QString::number(field.id) + kPartSeparator + field.name + kTypeSeparator +
           QString::number(field.lineType) + kPartSeparator + QLatin1String(field.visible ? "true" : "false");
}

QVector<CustomField> readCustomFields(const QVariant &setting)
{
    QMap<int, CustomField> byId;
    QVector<CustomField> clashing;
    for (const QString &text : fieldTexts(setting)) {
        std::optional<CustomField> field = readCustomField(text);
        if (!field)
            continue;
        if (field->id < kFirstId)
            field->id = nextCustomId(byId);
        if (byId.contains(field->id))
            clashing.append(*field);
        else
            byId.insert(field->id, *field);
    }
    for (CustomField &field : clashing) {
        field.id = nextCustomId(byId);
        byId.insert(field.id, field);
    }
    return byId.values().toVector();
}

QString customFieldsToSetting(const QVector<CustomField> &fields)
{
    QStringList texts;
    for (const CustomField &field : fields)
        texts.append(customFieldToText(field));
    return texts.join(kFieldSeparator);
}

QStringList readCustomNames(const QVariant &setting)
{
    QStringList names;
    for (const QString &text : fieldTexts(setting)) {
        const QString nameAndType = text.split(kPartSeparator, Qt::SkipEmptyParts).value(1);
        const QString name = nameAndType.split(kTypeSeparator).first();
        if (!name.isEmpty())
            names.append(name);
    }
    return names;
}

QString cleanCustomName(const QString &typed)
{
    QString name = typed;
    for (const QLatin1Char separator : {kFieldSeparator, kPartSeparator, kTypeSeparator})
        name.remove(separator);
    return name;
}
