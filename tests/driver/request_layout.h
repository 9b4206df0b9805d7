/* How a C compiler lays out the records that hosts pass in memory: for the test that compares it with the interface. */
#ifndef TRADEBILL_TESTS_REQUEST_LAYOUT_H
#define TRADEBILL_TESTS_REQUEST_LAYOUT_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct FieldLayout {
    const char* name; /* the field; null behind the last one */
    size_t offset;
    size_t size;
} FieldLayout;

extern const FieldLayout kMoneyRecordInC[];
extern const FieldLayout kChartSizeReportInC[];
extern const FieldLayout kGenerateBillRequestInC[];

extern const size_t kMoneyRecordSizeInC;
extern const size_t kChartSizeReportSizeInC;
extern const size_t kGenerateBillRequestSizeInC;

#ifdef __cplusplus
}
#endif

#endif
