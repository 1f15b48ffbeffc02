// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/processor_features.h"

#include <QDebug>
#include <QSysInfo>

#if (defined(__GNUC__) || defined(__clang__)) && (defined(__x86_64__) || defined(__i386__))
#define VEL_HAS_X86_CPUID 1
#include <cpuid.h>
#endif

namespace vel {

QString processor_name()
{
#ifdef VEL_HAS_X86_CPUID
    // The brand string fills leaves 0x80000002 to 0x80000004, 16 bytes each.
    constexpr unsigned int first_brand_leaf = 0x80000002;
    constexpr unsigned int last_brand_leaf = 0x80000004;
    // GCC declares the result unsigned, Clang int.
    if (static_cast<unsigned int>(__get_cpuid_max(0x80000000, nullptr)) >= last_brand_leaf) {
        char brand[49] = {};
        for (unsigned int leaf = first_brand_leaf; leaf <= last_brand_leaf; ++leaf) {
            unsigned int registers[4] = {};
            __get_cpuid(leaf, &registers[0], &registers[1], &registers[2], &registers[3]);
            for (int i = 0; i < 4; ++i) {
                for (int byte = 0; byte < 4; ++byte)
                    brand[(leaf - first_brand_leaf) * 16 + i * 4 + byte] =
                        static_cast<char>((registers[i] >> (8 * byte)) & 0xff);
            }
        }
        const QString name = QString::fromLatin1(brand).simplified();
        if (!name.isEmpty())
            return name;
    }
#endif
    return QSysInfo::currentCpuArchitecture();
}

QStringList processor_features()
{
    QStringList features;
#ifdef VEL_HAS_X86_CPUID
    __builtin_cpu_init();
    // __builtin_cpu_supports needs its argument as a literal, hence one line each.
    const struct {
        const char* name;
        bool supported;
    } known[] = {
        {"sse2", __builtin_cpu_supports("sse2") != 0},       {"sse3", __builtin_cpu_supports("sse3") != 0},
        {"ssse3", __builtin_cpu_supports("ssse3") != 0},     {"sse4.1", __builtin_cpu_supports("sse4.1") != 0},
        {"sse4.2", __builtin_cpu_supports("sse4.2") != 0},   {"popcnt", __builtin_cpu_supports("popcnt") != 0},
        {"avx", __builtin_cpu_supports("avx") != 0},         {"avx2", __builtin_cpu_supports("avx2") != 0},
        {"fma", __builtin_cpu_supports("fma") != 0},         {"bmi", __builtin_cpu_supports("bmi") != 0},
        {"bmi2", __builtin_cpu_supports("bmi2") != 0},       {"avx512f", __builtin_cpu_supports("avx512f") != 0},
    };
    for (const auto& feature : known) {
        if (feature.supported)
            features << QString::fromLatin1(feature.name);
    }
#endif
    return features;
}

void log_processor_features()
{
    const QStringList features = processor_features();
    const QString extensions =
        features.isEmpty() ? QStringLiteral("no known extensions") : features.join(QLatin1Char(' '));
    qDebug().noquote() << "Processor" << processor_name() << "with" << extensions;
}

} // namespace vel
