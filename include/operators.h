/* The cells of an expression: a map, and the codes of operators and functions.
 *
 * Below 500: an operand, by its row of the field table.
 * 501 to 548: an operator or function, by its code below; row code - 501 of the operator table.
 * 700 to 725: a temporary row, while an expression is evaluated.
 * 1000 and 1001: a cell that is used up, and an operand that is missing.
 * 1002: the end of every expression.
 *
 * A form keeps its expressions in the order in which they were written; a run turns them to postfix
 * in memory. */
#ifndef TESSARINE_OPERATORS_H
#define TESSARINE_OPERATORS_H

enum { /* codes of operators and functions */
       OP_LEFT_PARENTHESIS = 501,
       OP_RIGHT_PARENTHESIS = 502,
       OP_PLUS = 503,
       OP_MINUS,
       OP_TIMES,
       OP_DIVIDE,
       OP_EQUAL, /* 507 to 517: comparison and logic */
       OP_NOT_EQUAL,
       OP_POINT, /* means the same as OP_NOT_EQUAL */
       OP_GREATER,
       OP_LESS,
       OP_NOT_LESS,
       OP_NOT_GREATER,
       OP_OR,
       OP_AND,
       OP_NOT,
       OP_CONTAINED,
       OP_COMMA, /* 518 */
       OP_TOTAL, /* 519 to 523: summaries */
       OP_AVERAGE,
       OP_MAX_OF,
       OP_MIN_OF,
       OP_COUNT,
       OP_IF, /* 524 to 526: the conditional */
       OP_THEN,
       OP_ELSE,
       OP_LEN, /* 527 to 548: the function library */
       OP_UPPER,
       OP_LOWER,
       OP_TRIM,
       OP_WORD,
       OP_CHAR,
       OP_MIN,
       OP_MAX,
       OP_VAL,
       OP_ROUND,
       OP_ABS,
       OP_WEEKDAY,
       OP_DAY,
       OP_MONTH,
       OP_YEAR,
       OP_LEFT,
       OP_RIGHT,
       OP_STR,
       OP_DTOC,
       OP_DTOS,
       OP_CTOD,
       OP_MONTHTOS
};

#endif
