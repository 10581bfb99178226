#include "Corvane/settings/referencesets.h"

#include <QCoreApplication>

// The ids of the variants for ethnic groups are the base id with the group's number written behind it. They
// are keys that the measurement application knows; nothing is ever computed from them. Where a description
// begins with a blank, so do its translations' source texts.
const QVector<ReferenceSet> &builtInReferenceSets()
{
    static const QVector<ReferenceSet> table = {
        {"-13244065", QT_TRANSLATE_NOOP("QObject", "Bergl_Z"),
         QT_TRANSLATE_NOOP("QObject", "Berglund for adults, Zapletal for children")},
        {"-344530043", QT_TRANSLATE_NOOP("QObject", "Brazil"),
         QT_TRANSLATE_NOOP("QObject", "Brazilian reference values")},
        {"36662987", QT_TRANSLATE_NOOP("QObject", "China"),
         QT_TRANSLATE_NOOP("QObject", "Chinese reference values")},
        {"-176248180", QT_TRANSLATE_NOOP("QObject", "Cra_Knu"),
         QT_TRANSLATE_NOOP("QObject", "Crapo for adults, Knudson for children")},
        {"-13244054", QT_TRANSLATE_NOOP("QObject", "ECSC_IGiChP"),
         QT_TRANSLATE_NOOP("QObject", "Polish reference values: ECSC for adults, IGiChP for children")},
        {"1017560561", QT_TRANSLATE_NOOP("QObject", "ECSC_P"),
         QT_TRANSLATE_NOOP("QObject", "European Coal and Steel Community for adults, Polgar for children")},
        {"-13244066", QT_TRANSLATE_NOOP("QObject", "ECSC_PZ"),
         QT_TRANSLATE_NOOP(
             "QObject",
             "European Coal and Steel Community for adults, Polgar and partly Zapletal for children")},
        {"-13244058", QT_TRANSLATE_NOOP("QObject", "ECSC_Qua"),
         QT_TRANSLATE_NOOP("QObject", "European Coal and Steel Community for adults, Quanjer for children")},
        {"-13244057", QT_TRANSLATE_NOOP("QObject", "ECSC_Qua_AT"),
         QT_TRANSLATE_NOOP("QObject",
                           "European Coal and Steel Community for adults, Quanjer for Austrian children")},
        {"-13244056", QT_TRANSLATE_NOOP("QObject", "ECSC_Qua_ES"),
         QT_TRANSLATE_NOOP("QObject",
                           "European Coal and Steel Community for adults, Quanjer for Spanish children")},
        {"-13244055", QT_TRANSLATE_NOOP("QObject", "ECSC_Qua_GB"),
         QT_TRANSLATE_NOOP("QObject",
                           "European Coal and Steel Community for adults, Quanjer for English children")},
        {"-1601507996", QT_TRANSLATE_NOOP("QObject", "ECSC_Z"),
         QT_TRANSLATE_NOOP("QObject", "European Coal and Steel Community for adults, Zapletal for children")},
        {"-73344080", QT_TRANSLATE_NOOP("QObject", "Forche2"),
         QT_TRANSLATE_NOOP("QObject", "Austrian reference values: Forche for adults and children")},
        {"-13244053", QT_TRANSLATE_NOOP("QObject", "Garcia-Rio_Roca_SEP"),
         QT_TRANSLATE_NOOP(
             "QObject",
             "Spanish reference values: Garcia-Rio for elderly, Roca for adults, SEPAR for children")},
        {"2012", QT_TRANSLATE_NOOP("QObject", "GLI2012"),
         QT_TRANSLATE_NOOP("QObject",
                           "Global Lung Function Initiative reference values for adults and children")},
        {"20121", QT_TRANSLATE_NOOP("QObject", "GLI2012_African_American"),
         QT_TRANSLATE_NOOP(
             "QObject",
             "Global Lung Function Initiative reference values for African American adults and children")},
        {"20123", QT_TRANSLATE_NOOP("QObject", "GLI2012_Caucasian"),
         QT_TRANSLATE_NOOP(
             "QObject",
             "Global Lung Function Initiative reference values for Caucasian adults and children")},
        {"201213", QT_TRANSLATE_NOOP("QObject", "GLI2012_North_East_Asians"),
         QT_TRANSLATE_NOOP(
             "QObject",
             "Global Lung Function Initiative reference values for North East Asians adults and children")},
        {"201214", QT_TRANSLATE_NOOP("QObject", "GLI2012_South_East_Asians"),
         QT_TRANSLATE_NOOP(
             "QObject",
             "Global Lung Function Initiative reference values for South East Asians adults and children")},
        {"201215", QT_TRANSLATE_NOOP("QObject", "GLI2012_Other/mixed"),
         QT_TRANSLATE_NOOP(
             "QObject",
             "Global Lung Function Initiative reference values for Other/mixed adults and children")},
        {"-13244062", QT_TRANSLATE_NOOP("QObject", "Gulsvik_Z"),
         QT_TRANSLATE_NOOP("QObject",
                           "Norwegian reference values: Gulsvik for adults, Zapletal for children")},
        {"-13244059", QT_TRANSLATE_NOOP("QObject", "Hedenstrom_Sol"),
         QT_TRANSLATE_NOOP("QObject",
                           "Swedish reference values: Hedenstrom for adults, Solymar for children")},
        {"-13244060", QT_TRANSLATE_NOOP("QObject", "Hedenstrom_Z"),
         QT_TRANSLATE_NOOP("QObject",
                           " Swedish reference values: Hedenstrom for adults, Zapletal for children")},
        {"-13244063", QT_TRANSLATE_NOOP("QObject", "Japan"),
         QT_TRANSLATE_NOOP("QObject", " Japanese reference values")},
        {"-13244048", QT_TRANSLATE_NOOP("QObject", "Jindal"),
         QT_TRANSLATE_NOOP("QObject", "Indian reference values: Jindal for adults and adolescents")},
        {"2015", QT_TRANSLATE_NOOP("QObject", "Kainu_Koillinen"),
         QT_TRANSLATE_NOOP("QObject",
                           "Finnish reference values: Kainu for adults and Koillinen for children")},
        {"-13244049", QT_TRANSLATE_NOOP("QObject", "Klement"),
         QT_TRANSLATE_NOOP("QObject", " Russian reference values: Klement for adults and children")},
        {"936007544", QT_TRANSLATE_NOOP("QObject", "Knudson"),
         QT_TRANSLATE_NOOP("QObject", " Knudson for adults and children")},
        {"-13244051", QT_TRANSLATE_NOOP("QObject", "Langhammer_Z"),
         QT_TRANSLATE_NOOP("QObject",
                           "Norwegian reference values: Langhammer for adults, Zapletal for children")},
        {"-13244061", QT_TRANSLATE_NOOP("QObject", "NHANES III_W"),
         QT_TRANSLATE_NOOP("QObject",
                           "NHANES III (Hankinson) for 8-80-year-olds. Wang for children under 8 years")},
        {"-132440611", QT_TRANSLATE_NOOP("QObject", "NHANES III_W_African_American"),
         QT_TRANSLATE_NOOP("QObject", "NHANES III (Hankinson) for 8-80-year-olds and Wang for children under "
                                      "8 years African American ethnics")},
        {"-1324406112", QT_TRANSLATE_NOOP("QObject", "NHANES III_W_Mexican_American"),
         QT_TRANSLATE_NOOP("QObject", "NHANES III (Hankinson) for 8-80-year-olds and Wang for children under "
                                      "8 years Mexican American ethnics")},
        {"-1324406115", QT_TRANSLATE_NOOP("QObject", "NHANES III_W_Other"),
         QT_TRANSLATE_NOOP(
             "QObject",
             "NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years other ethnics")},
        {"-13244052", QT_TRANSLATE_NOOP("QObject", "SEPAR"),
         QT_TRANSLATE_NOOP("QObject", "Spanish reference values: SEPAR for adults and children")},
        {"-13244046", QT_TRANSLATE_NOOP("QObject", "Udwadia"),
         QT_TRANSLATE_NOOP("QObject", "Indian reference values: Udwadia for adults and adolescents")},
        {"-13244047", QT_TRANSLATE_NOOP("QObject", "Vijayan"),
         QT_TRANSLATE_NOOP("QObject", "Indian reference values: Vijayan for adults and adolescents")},
        {"-13244050", QT_TRANSLATE_NOOP("QObject", "Viljanen_Kiv"),
         QT_TRANSLATE_NOOP("QObject",
                           "Estonian reference values: Viljanen for adults, Kivastik for children")},
        {"1857262229", QT_TRANSLATE_NOOP("QObject", "Viljanen_Koi"),
         QT_TRANSLATE_NOOP("QObject",
                           "Finnish reference values: Viljanen for adults, Koillinen for children")},
    };
    return table;
}
