/* One day's account figures, as a statement or the host spells them.
 *
 * The layout is an interface: hosts pass this record in memory, so order and widths are fixed to the byte. Every text
 * is zero-terminated GBK; amounts are decimal texts, and an empty or unreadable one counts as 0. Plain C99.
 */
#ifndef TRADEBILL_MONEY_RECORD_H
#define TRADEBILL_MONEY_RECORD_H

/* clang-format off */
typedef struct MoneyRecord {
    char BILL_DATE[9];             /* statement day, yyyymmdd */
    char QCQY[16];                 /* opening balance */
    char SPARE_MONEY_1[16];        /* spare fields are the host's: neither read nor written */
    char SPARE_MONEY_2[16];
    char CRJ[16];                  /* net deposits less withdrawals */
    char QMJC[16];                 /* closing balance */
    char KYZJ[16];                 /* funds available */
    char PCYK[16];                 /* realised P/L of the day */
    char SPARE_MONEY_3[16];
    char SPARE_MONEY_4[16];
    char CCDSYK[16];               /* mark-to-market P/L of open positions */
    char HOST_CURRENT[16];         /* open-position P/L as of now */
    char KHQY[16];                 /* client equity */
    char SPARE_MONEY_5[16];
    char SXF[16];                  /* fees */
    char BZJZY[16];                /* margin occupied */
    char SPARE_MONEY_6[16];
    char SPARE_MONEY_7[16];
    char HOST_FROZEN_A[16];        /* frozen by pending orders, first addend */
    char HOST_FROZEN_B[16];        /* frozen by pending orders, second addend */
    char HOST_POSITION_MARGIN[16]; /* margin of open positions, live */
    char HOST_POSITION_PL[16];     /* open-position P/L, live */
    char XQSXF[16];                /* exercise fees */
    char QLJSZ[16];                /* option premium received less paid */
    char CURRENCY[16];             /* key under which a host's record enters the currency stores */
    char SPARE_MONEY_8[16];
    double EXCHANGE_RATE;          /* units of this currency per unit of base currency; amounts are divided by it */
} MoneyRecord;
/* clang-format on */

#endif
