#!/usr/bin/env python3
"""Trees and tokens of Oracle texts, written down by hand."""

import time
import unittest

from engine import token_lines, with_deep_stack
from oracle_oracle import (COMMITTING_WORDS, CONFIGURATION_FUNCTION, DATA_TYPE, DATE_PART, DATETIME_FUNCTION, DIALECT,
                           FUNCTION_NAMES, GROUP_FUNCTION, KEYWORDS, LITERAL_WORDS, LITERALS, NUMBER_FUNCTION,
                           STRING_FUNCTION, SYSTEM_FUNCTION, SYSTEM_VARIABLES, keyword_text)
from trees import (CLOSE, COMMA, DOT, MINUS, OPEN, PLUS, STAR, bare_num, cond, digit, from_, lit, nil, node, num, op,
                   params)


def tok(name, text=None):
    """A keyword token with its usual text, or any token with the text given."""
    return '%s:"%s"' % (name, keyword_text(name) if text is None else text)


def ident(text):
    """A name as a token, of the kind that its first character tells."""
    kind = {'[': 'COL_PAREN_ATTRITION', '"': 'MY_QUOTE_ATTRITION'}.get(text[0], 'IDENTIFICATOR')
    return tok(kind, text.replace('"', '\\"'))


def word_of(name):
    """A text and token of a word: in lower case where capitals are a literal."""
    text = keyword_text(name).strip("'")
    if name[0] == "'":
        return text, lit(text)
    text = text.lower() if text in LITERALS else text
    return text, tok(name, text)


def names(parts, labels):
    return [node(label, part if ':"' in part else ident(part)) for part, label in zip(parts, labels[-len(parts):])]


def col(*parts):
    return node('COLUMN_SPECIFICATION', *names(parts, ['DB_NAME', 'TABLE_NAME', 'COLUMN_NAME']))


def string(text):
    return node('SQL_LITERAL', node('SQL_STRING', tok('QUOTE_ATTRITION', text)))


def alias(named, *parts):
    return node('ALIAS', named, node('NEW_NAME', *(part if ':"' in part else ident(part) for part in parts)))


def table(*parts):
    return node('TABLE_SPECIFICATION', *names(parts, ['DB_NAME', 'TABLE_NAME']))


def where(*parts):
    return node('WHERE_CONDITION', *parts)


def select(items, *clauses, predicate=()):
    return node('SELECT_QUERY_OR', *([node('PREDICATE', *predicate)] if predicate else []),
                node('SELECT_LIST', *items), *clauses)


def query(items, *clauses, predicate=()):
    return nil(select(items, *clauses, predicate=predicate))


def eq(*operands):
    return op('EQ', '=', *operands)


def comma(left, *right):
    return node(COMMA, left, *right)


def negated(*parts):
    return node('NOT_CONDITION', cond(*parts))


def word(name, *children):
    return node(tok(name), *children)


def between(*parts):
    return word('BETWEEN_KEYWORD', *parts)


def func(*parts):
    return node('FUNCTION', *parts)


def user_func(*parts):
    return node('USER_FUNCTION', *parts)


def row_number(*parts):
    return func(tok('ROW_NUMBER'), params(func(tok('OVER'), params(*parts))))


def datatype(*parts):
    return node('DATATYPE', *parts)


def join(prefix, postfix, *nested):
    return node('JOIN_DEF', node(tok('JOIN_KEYWORD'), node('JOIN_PREFIX', *prefix), node('JOIN_POSTFIX', *postfix)),
                *nested)


def on(*parts):
    return node(tok('ON_KEYWORD'), *parts)


NOT = tok('NOT_KEYWORD')
NULL = tok('NULL_KEYWORD')
FROM = tok('FROM_KEYWORD')
SELECT = tok('SELECT_KEYWORD')
WHERE = tok('WHERE_KEYWORD')
INNER = tok('INNER_KEYWORD')
AND = tok('AND_KEYWORD')
ERROR_QUERY = node('SELECT_QUERY_OR', 'ERROR')

A, B, C, D, X, Y, Z = (col(name) for name in 'abcdxyz')
ONE, TWO, THREE = num('1'), num('2'), num('3')
TABLE_A, TABLE_B, TABLE_C = (table(name) for name in 'abc')
MARK = node('WHERE_JOIN', OPEN, PLUS, CLOSE)
FROM_T = from_(table('t'))
SELECT_A_FROM_T = select([A], FROM_T)
SELECT_B_FROM_U = select([B], from_(table('u')))
A_IS_1, B_IS_2, C_IS_3 = cond(eq(A, ONE)), cond(eq(B, TWO)), cond(eq(C, THREE))
ONE_AND_TWO = word('AND_KEYWORD', ONE, TWO)
ON_XY = on(cond(eq(X, Y)))
ON_YZ = on(cond(eq(Y, Z)))

STATEMENTS = {
    'SELECT a, b AS c FROM t1 INNER JOIN t2 ON t1.x = t2.y WHERE a > 1 ORDER BY b DESC': query(
        [A, alias(B, 'c')],
        from_(join([table('t1'), INNER], [table('t2'), on(cond(eq(col('t1', 'x'), col('t2', 'y'))))])),
        where(cond(op('GT', '>', A, ONE))), node('ORDER_BY', B, tok('DESC_KEYWORD'))),
    'SELECT * FROM t': query([node('ASTERISK_', STAR)], FROM_T),
    'SELECT t.* FROM t': query([col('t', STAR)], FROM_T),
    'SELECT DISTINCT a FROM t': query([A], FROM_T, predicate=[tok('DISTINCT_KEYWORD')]),
    'SELECT TOP 10 PERCENT a FROM t': query([A], FROM_T, predicate=[
        word('TOP_KEYWORD', bare_num('10'), tok('PERCENT_KEYWORD'))]),
    'SELECT ALL TOP (5) WITHTIES a': query([A], predicate=[
        tok('ALL_KEYWORD'), word('TOP_KEYWORD', bare_num('5'), tok('WITHTIES_KEYWORD'))]),
    'SELECT ROW_NUMBER() OVER (PARTITION BY a ORDER BY b) rn FROM t': query([alias(
        row_number(node('PARTITION_BY', A), node('ORDER_BY', B)), 'rn')], FROM_T),
    'SELECT ROW_NUMBER() OVER (PARTITION BY a ORDER BY b) FROM t': query([
        row_number(node('PARTITION_BY', A), node('ORDER_BY', B))], FROM_T),
    'SELECT row_number() OVER (ORDER BY a DESC, b) AS rn': query([alias(
        row_number(node('ORDER_BY', A, tok('DESC_KEYWORD'), B)).replace('"ROW_NUMBER"', '"row_number"'), 'rn')]),
    'SELECT a, ROW_NUMBER() OVER (PARTITION BY a)': nil(
        select([A]), COMMA, tok('ROW_NUMBER'), OPEN, CLOSE, tok('OVER'), OPEN, tok('PARTITION_KEYWORD'),
        tok('BY_KEYWORD'), ident('a'), CLOSE),
    'SELECT "a b" FROM [c d]': query([col('"a b"')], from_(table('[c d]'))),
    'SELECT a FROM t LIMIT 5': nil(select([A], from_(alias(table('t'), 'LIMIT'))), digit('5')),
    'SELECT a FROM t;': nil(SELECT_A_FROM_T),
    'SELECT :x FROM t': query([X], FROM_T),
    '(SELECT a FROM t)': nil(SELECT_A_FROM_T),
    'SELECT a FROM t)': nil(SELECT_A_FROM_T),
    'SELECT a FROM t))': nil(SELECT_A_FROM_T, CLOSE),
    'SELECT a FROM t WHERE': nil(SELECT_A_FROM_T, WHERE),
    'SELECT a FROM t; SELECT b': nil(SELECT_A_FROM_T, SELECT, ident('b')),
    'SELECT a UNION ALL SELECT b': query([A], node('UNION', tok('ALL_KEYWORD'), select([B]))),
    'SELECT a UNION SELECT b UNION SELECT c': query(
        [A], node('UNION', select([B], node('UNION', select([C]))))),
    'SELECT a FROM t MINUS SELECT b': nil(select([A], from_(alias(table('t'), 'MINUS'))), SELECT, ident('b')),
    'SELECT a FROM t GROUP BY a, b, f(x) HAVING a > 1': nil(
        select([A], FROM_T, node('GROUP_BY', A, B, col('f'))), OPEN, ident('x'), CLOSE, tok('HAVING_KEYWORD'),
        ident('a'), tok('GT', '>'), digit('1')),
    'SELECT a FROM t GROUP BY a, 1 with cube HAVING COUNT(*) > 1': query(
        [A], FROM_T, node('GROUP_BY', A, ONE, tok('WITH_KEYWORD', 'with'), tok('CUBE_KEYWORD', 'cube')),
        node('HAVING', cond(op('GT', '>', func(tok('COUNT'), params(STAR)), ONE)))),
    'SELECT a FROM t GROUP BY ALL a WITH CUBE': nil(
        select([A], FROM_T, node('GROUP_BY', tok('ALL_KEYWORD'), A)), lit('WITH'), tok('CUBE_KEYWORD')),
    'SELECT a FROM t GROUP BY 1': nil(SELECT_A_FROM_T, tok('GROUP_KEYWORD'), tok('BY_KEYWORD'), digit('1')),
    'SELECT a ORDER BY a ASC, -b DESC, c': query(
        [A], node('ORDER_BY', A, tok('ASC_KEYWORD'), node(MINUS, B), tok('DESC_KEYWORD'), C)),
    'SELECT a FROM t COMPUTE SUM(a), f(b) BY a, b': query(
        [A], FROM_T, node('COMPUTE', func(tok('SUM'), params(A)), user_func(ident('f'), params(B)), node('BY', A, B))),
    'SELECT a FROM t FOR BROWSE': query([A], FROM_T, node('FOR', lit('BROWSE'))),
    'SELECT a FROM t FOR XML raw.XMLDATA.BYNATY base64': query(
        [A], FROM_T, node('FOR', lit('XML'), tok('RAW', 'raw'), DOT, lit('XMLDATA'), DOT, lit('BYNATY base64'))),
    'SELECT a FROM t OPTION HASH GROUP, CONCAT UNION, MAXDOP 2, KEEP PLAN, EXPAND VIEWS': query(
        [A], FROM_T, node('OPTION', lit('HASH'), tok('GROUP_KEYWORD'), tok('CONCAT'), tok('UNION_KEYWORD_'),
                          lit('MAXDOP'), bare_num('2'), lit('KEEP'), lit('PLAN'), lit('EXPAND VIEWS'))),
    'SELECT a.b* FROM t': query([node('COLUMN_SPECIFICATION', node('DB_NAME', ident('a')),
                                      node('TABLE_NAME', ident('b')), node('ASTERISK_', STAR))], FROM_T),
    'SELECT x.a.b, LOG, "q".[w]': query([col('x', 'a', 'b'), col(tok('LOG')), col('"q"', '[w]')]),
    'SELECT a COUNT, b AS Sum, c #d ##, DATE yyyy': query(
        [alias(A, tok('COUNT')), alias(B, tok('SUM', 'Sum')), alias(C, lit('#'), 'd', lit('##')),
         alias(col(tok('DATE')), lit('yyyy'))]),
    'SELECT a b]': query([alias(A, 'b')]),
    "SELECT a b'": query([alias(A, 'b')]),
    "SELECT a 'b'": nil(select([A]), tok('QUOTE_ATTRITION', "'b'")),
    'SELECT IDENTIFYCOL, ROWGUIDCOL x': query([lit('IDENTIFYCOL'), alias(lit('ROWGUIDCOL'), 'x')]),
    'SELECT SYSDATE, ROWNUM FROM DUAL': query([col('SYSDATE'), col('ROWNUM')], from_(table('DUAL'))),
    # No SELECT at the beginning
    'INSERT INTO t': nil(ERROR_QUERY, ident('INSERT'), lit('INTO'), ident('t')),
    'x SELECT a': nil(ERROR_QUERY, ident('x'), SELECT, ident('a')),
    '': nil(ERROR_QUERY),
    '((SELECT a) UNION SELECT b)': nil(select([A]), tok('UNION_KEYWORD_'), SELECT, ident('b'), CLOSE),
    '(((SELECT a': nil(ERROR_QUERY, OPEN, OPEN, OPEN, SELECT, ident('a')),
    # Errors that are reported, and whose trees are not modelled
    'SELECT': None,
    'SELECT FROM t': None,
    'SELECT COUNT() FROM t': None,
    'SELECT LEFT FROM t': None,
    'SELECT CASE FROM t': None,
    'SELECT CAST FROM t': None,
    'SELECT EXTRACT FROM t': None,
    'SELECT EXISTS FROM t': None,
    'SELECT MULTISET FROM t': None,
    'SELECT ROW_NUMBER() OVER (PARTITION BY a)': None,
}

# What stands behind `SELECT a FROM`: the clause, or None where it fails, and the tokens that trail.
SOURCES = {
    't1, t2, t3': [from_(comma(comma(table('t1'), table('t2')), table('t3')))],
    'a,': [from_(node(COMMA, TABLE_A))],
    '': [from_()],
    'SELECT b': [from_(), SELECT, ident('b')],
    '(t)': [None, FROM, OPEN, ident('t'), CLOSE],
    '(SELECT a FROM t)': [from_(SELECT_A_FROM_T)],
    '(SELECT a FROM t) x, b y': [from_(comma(alias(SELECT_A_FROM_T, 'x'), alias(TABLE_B, 'y')))],
    '((SELECT a FROM t)) AS x b, c': [from_(' '.join([alias(SELECT_A_FROM_T, 'x'), B, C]))],
    't AS x': [from_(alias(table('t'), 'x'))],
    'dbo.t x': [from_(alias(table('dbo', 't'), 'x'))],
    'a.b.c': [from_(table('a', 'b')), DOT, ident('c')],
    't WITH (NOLOCK)': [from_(table('t')), lit('WITH'), OPEN, lit('NOLOCK'), CLOSE],
    'a JOIN b ON x = y AND y = z': [from_(join([TABLE_A], [TABLE_B, on(word('AND_KEYWORD', cond(eq(X, Y)),
                                                                            cond(eq(Y, Z))))]))],
    'a JOIN b ON a AND b': [from_(join([TABLE_A], [TABLE_B, on(word('AND_KEYWORD', A, B))]))],
    'a JOIN b ON (x = y)': [from_(join([TABLE_A], [TABLE_B, ON_XY]))],
    'a x JOIN b y ON x = y': [from_(join([alias(TABLE_A, 'x')], [alias(TABLE_B, 'y'), ON_XY]))],
    'a JOIN b ON x = y JOIN c ON y = z': [from_(join([TABLE_A], [TABLE_B, ON_XY], join([], [TABLE_C, ON_YZ])))],
    '(a JOIN b ON x = y) JOIN c ON y = z': [from_(join([TABLE_A], [TABLE_B, ON_XY], join([], [TABLE_C, ON_YZ])))],
    'a JOIN b JOIN c ON x = y ON y = z': [from_(join([TABLE_A], [join([TABLE_B], [TABLE_C, ON_XY]), ON_YZ]))],
    'a JOIN (b JOIN c ON x = y) ON y = z': [from_(join([TABLE_A], [join([TABLE_B], [TABLE_C, ON_XY]), ON_YZ]))],
    'a INNER hash JOIN b': [from_(join([TABLE_A, INNER, tok('HASH', 'hash')], [TABLE_B]))],
    'a INNER HASH JOIN b': [from_(TABLE_A), INNER, lit('HASH'), tok('JOIN_KEYWORD'), ident('b')],
    'a LEFT OUTER LOOP JOIN b': [from_(join([TABLE_A, tok('LEFT_KEYWORD'), tok('OUTER_KEYWORD'), tok('LOOP')],
                                            [TABLE_B]))],
    'a CROSS JOIN b, c': [from_(comma(join([TABLE_A, tok('CROSS_KEYWORD')], [TABLE_B]), TABLE_C))],
    '(SELECT a FROM t) x JOIN b ON x = y': [from_(join([alias(SELECT_A_FROM_T, 'x')], [TABLE_B, ON_XY]))],
    'a JOIN (SELECT a FROM t) x ON x = y': [from_(join([TABLE_A], [alias(SELECT_A_FROM_T, 'x'), ON_XY]))],
    'JOIN b': [from_(join([], [TABLE_B]))],
    'a JOIN': [from_(join([TABLE_A], []))],
}

# What stands behind `SELECT a FROM t WHERE`, and the condition.
CONDITIONS = {
    'a = 1 AND b = 2 OR c = 3': word('OR_KEYWORD', word('AND_KEYWORD', A_IS_1, B_IS_2), C_IS_3),
    'a = 1 && (b = 2 or c = 3)': op('OR_KEYWORD', 'or', op('AND_KEYWORD2', '&&', A_IS_1, B_IS_2), C_IS_3),
    '(a = 1) || (b = 2)': op('OR_KEYWORD2', '||', A_IS_1, B_IS_2),
    'a': A,
    '(a = 1)': A_IS_1,
    '((a = 1))': A_IS_1,
    '(a = 1 AND b = 2)': word('AND_KEYWORD', A_IS_1, B_IS_2),
    'a BETWEEN 1 AND 2': between(A, ONE_AND_TWO),
    'a BETWEEN 1': between(A, ONE),
    'a NOT BETWEEN 1 OR 2': between(A, NOT, word('OR_KEYWORD', ONE, TWO)),
    '(a BETWEEN 1 AND 2)': OPEN + ' ' + between(A, ONE_AND_TWO),
    '((a BETWEEN 1 AND 2))': cond(OPEN, between(A, ONE_AND_TWO)),
    'a BETWEEN 1 AND 2 AND b = 2': word('AND_KEYWORD', between(A, ONE_AND_TWO), B_IS_2),
    'a IS NULL': cond(word('IS_KEYWORD', A, num(NULL))),
    'a IS NOT NULL': cond(word('IS_KEYWORD', A, num(NOT, NULL))),
    'a IN (1, 2)': cond(word('IN_KEYWORD', A, ONE, TWO)),
    'a NOT IN (1, 2)': cond(word('IN_KEYWORD', node(NOT, A), ONE, TWO)),
    'a IN (SELECT b FROM u)': cond(word('IN_KEYWORD', A, SELECT_B_FROM_U)),
    '(a, b) IN ((1, 2))': cond(word('IN_KEYWORD', A, B, OPEN, ONE, TWO, CLOSE)),
    'a, b = 1': cond(eq(A, B, ONE)),
    "a NOT LIKE 'x'": cond(word('LIKE_KEYWORD', node(NOT, A), string("'x'"))),
    'a NOT b': cond(node(NOT, A, B)),
    'a NOT NOT b': cond(node(NOT, node(NOT, A), B)),
    'a *= b': cond(op('LOJ', '*=', A, B)),
    'a =* b': cond(op('GOJ', '=*', A, B)),
    'a.x = b.y(+)': cond(eq(col('a', 'x'), col('b', 'y'), MARK)),
    'a.x(+) = b.y': cond(eq(col('a', 'x'), MARK, col('b', 'y'))),
    'a = @v': cond(eq(A, lit('@'), ident('v'))),
    'NOT a = 1': negated(eq(A, ONE)),
    'NOT (a = 1)': negated(eq(A, ONE)),
    'NOT (a = 1) AND b = 2': word('AND_KEYWORD', negated(eq(A, ONE)), B_IS_2),
    'NOT (a IN (1)) OR b = 2': word('OR_KEYWORD', negated(word('IN_KEYWORD', A, ONE)), B_IS_2),
    'NOT (a + b) = 1': negated(eq(node(PLUS, A, B), ONE)),
    'NOT (a = 1': negated(eq(A, ONE)),
    'NOT a BETWEEN 1 AND 2': negated(between(A, ONE_AND_TWO)),
    'NOT (a BETWEEN 1 AND 2)': negated(OPEN, between(A, ONE_AND_TWO)),
}

# Conditions that fail: the whole clause trails.
NO_CONDITIONS = {
    'NOT (a = 1 AND b = 2)': [NOT, OPEN, ident('a'), tok('EQ', '='), digit('1'), AND, ident('b'), tok('EQ', '='),
                              digit('2'), CLOSE],
    'NOT ((a IN (1)) OR b)': [NOT, OPEN, OPEN, ident('a'), tok('IN_KEYWORD'), OPEN, digit('1'), CLOSE, CLOSE,
                              tok('OR_KEYWORD'), ident('b'), CLOSE],
    'NOT (a BETWEEN 1 AND 2 AND b)': [NOT, OPEN, ident('a'), tok('BETWEEN_KEYWORD'), digit('1'), AND, digit('2'), AND,
                                      ident('b'), CLOSE],
    'NOT a': [NOT, ident('a')],
    '(((a = 1)))': [OPEN, OPEN, OPEN, ident('a'), tok('EQ', '='), digit('1'), CLOSE, CLOSE, CLOSE],
}

ITEMS = {
    '-5': num('-', '5'),
    '- 5 - 5': node(MINUS, num('-', '5'), num('5')),
    '-a': node(MINUS, A),
    '- -a': node(MINUS, MINUS, A),
    '- -5': node(MINUS, num('-', '5')),
    '-.5': num('-', '.', '5'),
    '-NULL': num('-', NULL),
    '- NOT NULL': num('-', NOT, NULL),
    '-a + b': node(PLUS, node(MINUS, A), B),
    'a * -1': node(STAR, A, num('-', '1')),
    'a - -1': node(MINUS, A, num('-', '1')),
    'a + b * c': node(PLUS, A, node(STAR, B, C)),
    'a / b & c': op('AMPERSAND', '&', op('DIVIDE', '/', A, B), C),
    'a % 2': op('MOD', '%', A, TWO),
    "a || 'x'": op('OR_KEYWORD2', '||', A, string("'x'")),
    'a * b || c': node(STAR, A, op('OR_KEYWORD2', '||', B, C)),
    '(a)': A,
    '(a + b) * c': node(STAR, node(PLUS, A, B), C),
    '(a, b)': ' '.join([OPEN, A, B, CLOSE]),
    '(SELECT a FROM t)': SELECT_A_FROM_T,
    '((SELECT a FROM t))': SELECT_A_FROM_T,
    '((SELECT a FROM t)) x': alias(SELECT_A_FROM_T, 'x'),
    'a = 1': A_IS_1,
    'a = 1 b': alias(A_IS_1, 'b'),
    'a(+)': A + ' ' + MARK,
    '1': ONE,
    '1.5': num('1', '.', '5'),
    '.5': num('.', '5'),
    '1E+5': num('1', ident('E'), '+', '5'),
    '1.5 E - - 3': num('1', '.', '5', ident('E'), '-', '-', '3'),
    'NULL': num(NULL),
    "'a b'": string("'a b'"),
    "''": string("''"),
    "'1/2/2000'": string("'1/2/2000'"),
    'CASE WHEN a = 1 THEN 2 ELSE 3 END': func(tok('CASE'), params(
        func(tok('WHEN'), params(A_IS_1)), func(tok('THEN'), params(TWO)), func(tok('ELSE'), params(THREE)),
        tok('END'))),
    'CASE (a) WHEN 1 THEN b AND c END': func(tok('CASE'), params(
        A, func(tok('WHEN'), params(ONE)), func(tok('THEN'), params(word('AND_KEYWORD', B, C))), tok('END'))),
    'CASE END': func(tok('CASE'), params(tok('END'))),
    'COUNT(*)': func(tok('COUNT'), params(STAR)),
    'COUNT(DISTINCT a, b)': func(tok('COUNT'), params(tok('DISTINCT_KEYWORD'), A, B)),
    'MAX a': func(tok('MAX_KEYWORD'), params(A)),
    'VAR(a)': func(tok('VAR'), params(A)),
    'VAR()': func(tok('VAR'), params()),
    'NVL(a, 0)': func(tok('NVL'), params(A, num('0'))),
    "DECODE(a, 1, 'x', 'y')": func(tok('DECODE'), params(A, ONE, string("'x'"), string("'y'"))),
    'CURRENT_DATE': func(tok('CURRENT_DATE')),
    'CURRENT_TIMESTAMP + 1': node(PLUS, func(tok('CURRENT_TIMESTAMP')), ONE),
    'GETDATE': col(tok('GETDATE')),
    'GETDATE()': func(tok('GETDATE'), params()),
    'COUNT + 1': func(tok('COUNT'), params(num('+', '1'))),
    'COUNT / 2': op('DIVIDE', '/', col(tok('COUNT')), TWO),
    '@@VERSION': col(lit('@@VERSION')),
    'dbms_random.value': col(lit('dbms_random.value')),
    'dbms_random.value(1, 2)': func(lit('dbms_random.value'), params(ONE, TWO)),
    'DBMS_RANDOM.VALUE': col('DBMS_RANDOM', 'VALUE'),
    'DBMS_RANDOM.VALUE(1)': user_func(ident('VALUE'), params(ONE)),
    'EXTRACT(YEAR FROM d)': func(tok('EXTRACT'), params(word(
        'FROM_KEYWORD', node('SQL_LITERAL', node('NUMBER_LITERAL', tok('YEAR'))), D))),
    'EXTRACT YEAR FROM d': func(tok('EXTRACT'), params(word(
        'FROM_KEYWORD', node('SQL_LITERAL', node('NUMBER_LITERAL', tok('YEAR'))), D))),
    'CAST(a AS VARCHAR2(10))': func(tok('CAST'), params(word('LITERAL_AS', A, datatype(
        tok('VARCHAR2'), bare_num('10'))))),
    'CAST(a AS VARCHAR2(10 BYTE))': func(tok('CAST'), params(word('LITERAL_AS', A, datatype(
        tok('VARCHAR2'), bare_num('10'), datatype(tok('BYTE')))))),
    'CAST(a AS NUMBER(8, 2))': func(tok('CAST'), params(word('LITERAL_AS', A, datatype(
        tok('NUMBER'), bare_num('8'), bare_num('2'))))),
    'CAST(a AS varchar(max))': func(tok('CAST'), params(word('LITERAL_AS', A, datatype(
        tok('VARCHAR', 'varchar'), bare_num(tok('MAX_KEYWORD', 'max')))))),
    'CONVERT(VARCHAR(10), a, 103)': func(tok('CONVERT'), params(
        datatype(tok('VARCHAR'), bare_num('10')), A, node('STYLE', digit('103')))),
    'CONVERT': col(tok('CONVERT')),
    'MULTISET (SELECT a FROM t)': func(tok('MULTISET'), params(SELECT_A_FROM_T)),
    'EXISTS (SELECT a FROM t)': func(tok('EXISTS'), params(SELECT_A_FROM_T)),
    'LEFT(a, 1)': func(tok('LEFT_KEYWORD'), params(A, ONE)),
    'SET TEXTSIZE(a)': func(lit('SET TEXTSIZE'), params(A)),
    'TO_CHAR(mm, a)': func(tok('TO_CHAR'), params(node('DATE_PART', lit('mm')), A)),
    '{fn DAY(a)': func(lit('fn'), tok('DAY'), params(A)),
    'f(a b)': user_func(ident('f'), params(A, B)),
    'f(a': user_func(ident('f'), params(A)),
    'f(+a)': user_func(ident('f'), params(node(PLUS, A))),
    'dbo.f(x)': user_func(ident('f'), params(X)),
    '[dbo].f(x)': user_func(node('DB_NAME', ident('[dbo]')), ident('f'), params(X)),
}

# What stands behind `SELECT`: its items and the tokens that trail behind them.
TRAILING_ITEMS = {
    'a * -b': ([A], [STAR, MINUS, ident('b')]),
    'f(x)(+)': ([user_func(ident('f'), params(X))], [OPEN, PLUS, CLOSE]),
    '{fn DAY(a)}': ([func(lit('fn'), tok('DAY'), params(A))], [tok('RIGHT_BRACE', '}')]),
    "DATE '2000-01-01'": ([col(tok('DATE'))], [tok('QUOTE_ATTRITION', "'2000-01-01'")]),
    "'it''s'": ([string("'it'")], [tok('QUOTE_ATTRITION', "'s'")]),
    'CURRENT_DATE()': ([func(tok('CURRENT_DATE'))], [OPEN, CLOSE]),
    't.GETDATE': ([col('t')], [DOT, tok('GETDATE')]),
    '1 AND 2': ([ONE], [AND, digit('2')]),
    '`a`, b': None,
}

TOKENS = {
    'select SELECT selectx': [tok('SELECT_KEYWORD', 'select'), SELECT, ident('selectx')],
    'a$b#1': [ident('a$b#1')],
    "'a b'": [tok('QUOTE_ATTRITION', "'a b'")],
    "''": [tok('QUOTE_ATTRITION', "''")],
    "'it''s'": [tok('QUOTE_ATTRITION', "'it'"), tok('QUOTE_ATTRITION', "'s'")],
    '"a b"': [ident('"a b"')],
    '[a b]': [ident('[a b]')],
    'NOT IN': [NOT, tok('IN_KEYWORD')],
    'VARCHAR2(VARCHAR(': [tok('VARCHAR2'), OPEN, tok('VARCHAR'), OPEN],
    'yyyy yyy YYYY': [lit('yyyy'), ident('yyy'), ident('YYYY')],
    'SYSDATE ROWNUM DUAL MOD': [ident('SYSDATE'), ident('ROWNUM'), ident('DUAL'), ident('MOD')],
    '1.5.5': [digit('1'), DOT, digit('5'), DOT, digit('5')],
    '=**=|||&&&': [tok('GOJ', '=*'), tok('LOJ', '*='), tok('OR_KEYWORD2', '||'), tok('VERTBAR', '|'),
                   tok('AND_KEYWORD2', '&&'), tok('AMPERSAND', '&')],
    'UNION_ NVL2 SETX': [ident('UNION_'), ident('NVL2'), ident('SETX')],
    'WITH with With': [lit('WITH'), tok('WITH_KEYWORD', 'with'), tok('WITH_KEYWORD', 'With')],
    'MERGE merge HASH hash INTO into': [lit('MERGE'), tok('MERGE', 'merge'), lit('HASH'), tok('HASH', 'hash'),
                                        lit('INTO'), ident('into')],
    'mi MI': [lit('mi'), ident('MI')],
    '[': [tok('LEFT_COL_PAREN', '[')],
    "'": [lit("'")],
    '"': [tok('MY_QUOTE', '\\"')],
    "a 'b": [ident('a')],
    'a [b': [ident('a')],
    'a "b': [ident('a')],
    '`a`': [tok('MY_ONE_QUOTE', '`'), ident('a'), tok('MY_ONE_QUOTE', '`')],
    ']{}': [tok('RIGHT_COL_PAREN', ']'), tok('LEFT_BRACE', '{'), tok('RIGHT_BRACE', '}')],
    '--/*': [MINUS, MINUS, tok('DIVIDE', '/'), STAR],
    ':x;': [ident('x')],
    '!=<>': [tok('NOT_EQ', '!='), tok('NOT_EQ', '<>')],
    '!ab': [ident('b')],
    'a!': [ident('a')],
    '<=>=< >': [tok('LE', '<='), tok('GE', '>='), tok('L_T', '<'), tok('GT', '>')],
    '##a # @b': [lit('##'), ident('a'), lit('#'), lit('@'), ident('b')],
    '@@version': [lit('@'), ident('version')],
    '@@VERSIONX': [lit('@@VERSION'), ident('X')],
    '@@@VERSION': [lit('@@VERSION')],
    'SET TEXTSIZE SET x SET xy SET\tx': [lit('SET TEXTSIZE'), ident('y'), ident('SET'), ident('x')],
    'EXPAND VIEWS EXPAND VIEX': [lit('EXPAND VIEWS')],
    'BYNATY base64 BYNATY base6': [lit('BYNATY base64')],
    'dbms_random dbms_random.valueX': [ident('dbms_random'), lit('dbms_random.value'), ident('X')],
    'DBMS_RANDOM.VALUE': [ident('DBMS_RANDOM'), DOT, ident('VALUE')],
    'dbms_random.vaxue': [ident('ue')],
    'naäme': [ident('na'), ident('me')],
    'a\U0001f600b': [ident('a'), ident('b')],
    '': [],
}


def visible(text):
    return [line for line in token_lines(DIALECT.lex(text)) if not line.startswith('WS:')]


class Trees(unittest.TestCase):
    maxDiff = None

    def check(self, sql, expected):
        with self.subTest(sql):
            self.assertEqual(DIALECT.parse(sql), expected)

    def test_statements(self):
        for sql, tree in STATEMENTS.items():
            self.check(sql, tree)

    def test_sources(self):
        for text, (clause, *trailing) in SOURCES.items():
            self.check('SELECT a FROM ' + text, nil(select([A], *([clause] if clause else [])), *trailing))

    def test_conditions(self):
        for text, condition in CONDITIONS.items():
            self.check('SELECT a FROM t WHERE ' + text, query([A], FROM_T, where(condition)))

    def test_where_without_a_condition_trails(self):
        for text, trailing in NO_CONDITIONS.items():
            self.check('SELECT a FROM t WHERE ' + text, nil(SELECT_A_FROM_T, WHERE, *trailing))

    def test_what_stands_behind_a_parenthesis_of_a_condition_trails(self):
        self.check('SELECT a FROM t WHERE a = (b + c) * 2', nil(
            select([A], FROM_T, where(cond(eq(A, node(PLUS, B, C))))), STAR, digit('2')))
        self.check('SELECT a FROM t WHERE (a) BETWEEN 1 AND 2', nil(
            select([A], FROM_T, where(A)), tok('BETWEEN_KEYWORD'), digit('1'), AND, digit('2')))
        self.check('SELECT a FROM t WHERE a = (b = 1)', nil(
            select([A], FROM_T, where(cond(eq(A, B)))), tok('EQ', '='), digit('1'), CLOSE))

    def test_items(self):
        for text, tree in ITEMS.items():
            self.check('SELECT ' + text, query([tree]))

    def test_items_with_trailing_text(self):
        for text, expected in TRAILING_ITEMS.items():
            self.check('SELECT ' + text, expected and nil(select(expected[0]), *expected[1]))

    def test_a_list_before_a_comparison_is_its_left_side(self):
        self.check('SELECT a, b = 1, c', query([cond(eq(A, B, ONE, C))]))

    def test_every_word_of_the_function_families_can_be_called(self):
        families = {13: GROUP_FUNCTION, 24: NUMBER_FUNCTION, 31: STRING_FUNCTION, 17: DATETIME_FUNCTION,
                    16: CONFIGURATION_FUNCTION, 10: SYSTEM_FUNCTION}
        for count, family in families.items():
            self.assertEqual(len(family), count)
            for name in family:
                text, token = word_of(name)
                self.check('SELECT %s(a)' % text, query([func(token, params(A))]))

    def test_words_of_functions_are_names_where_no_call_follows(self):
        for name in FUNCTION_NAMES:
            text, token = word_of(name)
            self.check('SELECT %s FROM t' % text, query([col(token)], FROM_T))
            self.check('SELECT a FROM t WHERE %s = 1' % text, query([A], FROM_T, where(cond(eq(col(token), ONE)))))

    def test_words_that_are_names_everywhere(self):
        self.assertEqual((len(DATE_PART), len(DATA_TYPE)), (5, 23))
        for name in DATE_PART + DATA_TYPE + ['LOG', 'PI']:
            text, token = word_of(name)
            self.check('SELECT %s, x.%s y FROM %s %s' % (text, text, text, text), query(
                [col(token), alias(col('x', token), 'y')], from_(alias(table(token), token))))

    def test_data_types(self):
        for name in DATA_TYPE:
            self.check('SELECT CAST(a AS %s)' % name, query([func(tok('CAST'), params(
                word('LITERAL_AS', A, datatype(tok(name)))))]))


class Checks(unittest.TestCase):
    def test_status(self):
        for status, texts in {'clean': ['SELECT a', 'SELECT a;', '(SELECT a)'],
                              'trailing': ['SELECT a b c', 'SELECT a FROM t WHERE', 'SELECT a))'],
                              'error': ['', 'x SELECT a', '((SELECT a))', 'SELECT', 'SELECT TOP']}.items():
            for sql in texts:
                with self.subTest(sql):
                    self.assertEqual(DIALECT.read(sql).status, status)


class Tokens(unittest.TestCase):
    def check(self, text, expected):
        with self.subTest(text):
            self.assertEqual(visible(text), expected)

    def test_texts(self):
        for text, expected in TOKENS.items():
            self.check(text, expected)

    def test_white_space_is_hidden(self):
        self.assertEqual(token_lines(DIALECT.lex('a \t\r\n\n\rb')),
                         [ident('a')] + ['WS:"%s" @hidden' % text for text in (' ', '\\t', '\\r\\n', '\\n', '\\r')] +
                         [ident('b')])

    def test_keywords_in_any_case(self):
        for text, name in KEYWORDS.items():
            for shown in (text.lower(), text.title(), text.upper()):
                self.check(shown, [lit(shown) if shown in LITERALS else tok(name, shown)])
                self.check(shown + '_', [ident(shown + '_')])

    def test_literals_in_their_case_only(self):
        self.assertEqual(len(LITERAL_WORDS), 40)
        for text in LITERAL_WORDS:
            self.check(text, [lit(text)])
            other = text.swapcase()
            self.check(other, [tok(KEYWORDS.get(other.upper(), 'IDENTIFICATOR'), other)])

    def test_committed_literals_cut_short(self):
        for word_, literal in COMMITTING_WORDS.items():
            self.check(word_, [ident(word_)])
            for end in range(len(word_) + 1, len(literal)):
                self.check(literal[:end], [])
                self.check(literal[:end] + '%+', [PLUS])

    def test_system_variables_cut_short(self):
        self.assertEqual(len(SYSTEM_VARIABLES), 16)
        for name in SYSTEM_VARIABLES:
            self.check(name, [lit(name)])
            for end in range(3, len(name)):
                shown = name[2:end]
                self.check(name[:end], [lit('@'), tok(KEYWORDS.get(shown, 'IDENTIFICATOR'), shown)])

    def test_characters_without_a_token_disappear(self):
        for code in [*range(0, 9), 0x0b, 0x0c, *range(0x0e, 32), *map(ord, ':;?\\^~'), 0x7f, 0x80, 0xe4, 0xffff]:
            self.check('a' + chr(code) + 'b', [ident('a'), ident('b')])
        self.check('$a', [ident('a')])


class Growth(unittest.TestCase):
    def test_unclosed_nesting_is_not_exponential(self):
        for text in ('SELECT ' + '(' * 300 + 'a FROM t', 'SELECT a, b FROM t WHERE ' + '(' * 300 + 'a = 1',
                     'SELECT a FROM ' + 'a JOIN ' * 100 + 'b', 'SELECT a FROM t WHERE ' + 'NOT (' * 100 + 'a = 1'):
            start = time.monotonic()
            with_deep_stack(lambda text=text: DIALECT.parse(text))
            self.assertLess(time.monotonic() - start, 10)


if __name__ == '__main__':
    unittest.main()
