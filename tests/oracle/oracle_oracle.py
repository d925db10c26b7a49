#!/usr/bin/env python3
"""A plain second reading of the Oracle dialect, to check the generated recognizers against.

Forms that an earlier one always pre-empts are left out: table hints, date literals, aliases of functions.

As a program: newline-delimited {"id", "sql"} in, {"id", "tree", "status", "tokens"} out.
"""

import re

from engine import (CAPITALS, Dialect, Row, Token, before, choice, committed_token, drop, enclosed_token, keep, list_of,
                    many, not_before, nothing, operator_token, opt, quoted, root, select_entry, seq, with_deep_stack,
                    words)


# ---------------------------------------------------------------------------------------------------- vocabulary

SYSTEM_VARIABLES = words("""
    @@CONNECTION @@DATEFIRST @@DBTS @@LANGID @@LANGUAGE @@LOCK_TIMEOUT @@MAX_CONNECTIONS @@MAX_PRECISION @@NESTLEVEL
    @@OPTIONS @@REMSERVER @@SERVERNAME @@SERVICENAME @@SPID @@TEXTSIZE @@VERSION
""")

# Matched case-sensitively, before the keywords; a token's name is its text in single quotes.
LITERAL_WORDS = words("""
    AUTO BROWSE ELEMENTS EXPLICIT FAST FASTFIRSTROW FORCE HASH HOLDLOCK IDENTIFYCOL INDEX INTO KEEP KEEPFIXED MAXDOP
    MERGE NOLOCK PAGLOCK PLAN READCOMMITTED READPAST READUNCOMMITTED REPEATABLEREAD ROBUST ROWGUIDCOL ROWLOCK
    SERIALIZABLE TABLOCK TABLOCKX UPDLOCK WITH XLOCK XML XMLDATA fn mi mm wk yy yyyy
""")

# A word of this list and the character behind it commit the lexer to the whole literal.
COMMITTING_WORDS = {'SET': 'SET TEXTSIZE', 'EXPAND': 'EXPAND VIEWS', 'BYNATY': 'BYNATY base64',
                    'dbms_random': 'dbms_random.value'}

KEYWORD_TOKENS = words("""
    SELECT_KEYWORD TOP_KEYWORD ALL_KEYWORD DISTINCT_KEYWORD PERCENT_KEYWORD WITHTIES_KEYWORD FROM_KEYWORD EXISTS
    MULTISET LITERAL_AS INNER_KEYWORD JOIN_KEYWORD LEFT_KEYWORD RIGHT_KEYWORD FULL_KEYWORD OUTER_KEYWORD CROSS_KEYWORD
    WITH_KEYWORD ON_KEYWORD NULL_KEYWORD WHERE_KEYWORD CUBE_KEYWORD ROLLUP_KEYWORD HAVING_KEYWORD UNION_KEYWORD_
    GROUP_KEYWORD ORDER_KEYWORD PARTITION_KEYWORD ASC_KEYWORD DESC_KEYWORD COMPUTE_KEYWORD BY_KEYWORD FOR_KEYWORD
    OPTION_KEYWORD AND_KEYWORD OR_KEYWORD BETWEEN_KEYWORD LIKE_KEYWORD IS_KEYWORD NOT_KEYWORD IN_KEYWORD WHEN THEN ELSE
    END CASE DATE VARCHAR VARCHAR2 CHAR INT NUMERIC CONCAT FLOAT MONEY DECIMAL SMALLMONEY BIGINT BIT REAL SMALLDATETIME
    NVARCHAR TINYINT NTEXT TIMESTAMP INTEGER NUMBER RAW BYTE GETDATE WEEKDAY DATEADD DATEDIFF DATENAME DATEPART DAY
    GETUTCDATE HOUR ISDATE MONTH MINUTE YEAR SECOND FROM_TZ EXTRACT TRUNC MONTHS_BETWEEN CURRENT_DATE CURRENT_TIMESTAMP
    TO_CHAR TO_DATE ADD_MONTHS CONVERT CAST AVG BYNARY_CHECKSUM CHECKSUM COUNT COUNT_BIG GROUPING MAX_KEYWORD MIN SUM
    STDEV STDEVP VAR VARP ABS ACOS ASIN ATAN ATN2 CEILING COS COT DEGREES EXP FLOOR ISNUMERIC LOG LOG10 PI POWER RADIANS
    RAND ROUND SIGN SIN SQRT TAN BITAND NVL NULLIF ASCII CHARINDEX COALESCE DIFFERENCE LEN LOWER LTRIM NCHAR PARINDEX
    QUOTENAME READTEXT REPLACE REPLICATE REVERSE RTRIM SOUNDEX SPACE STR STUFF SUBSTR INSTR TEXTVALID UNICODE UPDATETEXT
    UPPER WRITETEXT LOOP HASH MERGE REMOTE DECODE USERENV SYS_CONTEXT MAKE_REF ROW_NUMBER OVER
""")

# Two characters before one: the first that matches is the token.
OPERATORS = [
    ('!=', 'NOT_EQ'), ('<>', 'NOT_EQ'), ('<=', 'LE'), ('>=', 'GE'), ('*=', 'LOJ'), ('=*', 'GOJ'),
    ('&&', 'AND_KEYWORD2'), ('||', 'OR_KEYWORD2'), ('##', "'##'"), ('#', "'#'"), ('@', "'@'"),
    (']', 'RIGHT_COL_PAREN'), ('`', 'MY_ONE_QUOTE'), ('{', 'LEFT_BRACE'), ('}', 'RIGHT_BRACE'), ('(', 'LEFT_PAREN'),
    (')', 'RIGHT_PAREN'), ('+', 'PLUS'), ('-', 'MINUS'), ('&', 'AMPERSAND'), ('/', 'DIVIDE'), ('.', 'DOT'),
    ('*', 'ASTERISK'), (',', 'COMMA'), ('|', 'VERTBAR'), ('%', 'MOD'), ('=', 'EQ'), ('<', 'L_T'), ('>', 'GT'),
]

# Opening character: closing character, token with a body, token of the opening character at the end of the text.
ENCLOSED = {
    '[': (']', 'COL_PAREN_ATTRITION', 'LEFT_COL_PAREN'),
    "'": ("'", 'QUOTE_ATTRITION', "'''"),
    '"': ('"', 'MY_QUOTE_ATTRITION', 'MY_QUOTE'),
}


def keyword_text(token):
    return 'AS' if token == 'LITERAL_AS' else token.replace('_KEYWORD_', '').replace('_KEYWORD', '')


KEYWORDS = {keyword_text(token): token for token in KEYWORD_TOKENS}
LITERALS = dict(zip(LITERAL_WORDS, quoted(LITERAL_WORDS)))

WORD = re.compile('[A-Z_a-z][#$0-9A-Z_a-z]*')
DIGITS = re.compile('[0-9]+')
SPACE_UNIT = re.compile('\r\n|[ \t\n\r]')


# --------------------------------------------------------------------------------------------------------- lexer

def next_token(units, at):
    """The token at a position, or None for lost characters, and the position behind."""
    if (match := SPACE_UNIT.match(units, at)):
        return Token('WS', match.group(), True), match.end()
    if units.startswith('@@', at):
        return system_variable(units, at)
    if (match := WORD.match(units, at)):
        return word_token(units, at, match.end())
    if (match := DIGITS.match(units, at)):
        return Token('DIGIT', match.group()), match.end()
    if units[at] in ENCLOSED:
        return enclosed_token(ENCLOSED, units, at)
    # An exclamation mark commits to the operator.
    if units.startswith('!', at) and not units.startswith('!=', at):
        return None, at + 2
    return operator_token(OPERATORS, units, at)


def system_variable(units, at):
    """Without a whole name the first of the two characters is lost."""
    for name, type_ in zip(SYSTEM_VARIABLES, quoted(SYSTEM_VARIABLES)):
        if units.startswith(name, at):
            return Token(type_, name), at + len(name)
    return None, at + 1


def word_token(units, at, end):
    word = units[at:end]
    if word in COMMITTING_WORDS and units.startswith(COMMITTING_WORDS[word][:end - at + 1], at):
        return committed_token(COMMITTING_WORDS[word], units, at)
    if word in LITERALS:
        return Token(LITERALS[word], word), end
    return Token(KEYWORDS.get(word.translate(CAPITALS), 'IDENTIFICATOR'), word), end


# --------------------------------------------------------------------------------------------------- sets of tokens

GROUP_FUNCTION = words("""
    AVG BYNARY_CHECKSUM CHECKSUM COUNT COUNT_BIG GROUPING MAX_KEYWORD MIN STDEV STDEVP SUM VAR VARP
""")

NUMBER_FUNCTION = words("""
    ABS ACOS ASIN ATAN ATN2 CEILING COS COT DEGREES EXP FLOOR ISNUMERIC LOG LOG10 PI POWER RADIANS RAND ROUND SIGN SIN
    SQRT TAN
""") + quoted(['dbms_random.value'])

STRING_FUNCTION = words("""
    ASCII CHAR CHARINDEX COALESCE DIFFERENCE INSTR LEFT_KEYWORD LEN LOWER LTRIM NCHAR PARINDEX QUOTENAME READTEXT
    REPLACE REPLICATE REVERSE RIGHT_KEYWORD RTRIM SOUNDEX SPACE STR STUFF SUBSTR TEXTVALID UNICODE UPDATETEXT UPPER VAR
    WRITETEXT
""") + quoted(['SET TEXTSIZE'])

DATETIME_FUNCTION = words("""
    DATEADD DATEDIFF DATENAME DATEPART DAY FROM_TZ GETDATE GETUTCDATE HOUR ISDATE MINUTE MONTH MONTHS_BETWEEN SECOND
    TRUNC WEEKDAY YEAR
""")

CONFIGURATION_FUNCTION = quoted(SYSTEM_VARIABLES)

SYSTEM_FUNCTION = words("ADD_MONTHS BITAND DECODE MAKE_REF NULLIF NVL SYS_CONTEXT TO_CHAR TO_DATE USERENV")

PLAIN_FUNCTION = NUMBER_FUNCTION + STRING_FUNCTION + DATETIME_FUNCTION + CONFIGURATION_FUNCTION + SYSTEM_FUNCTION

# Words that are names where no call follows.
FUNCTION_NAMES = [word for word in GROUP_FUNCTION + PLAIN_FUNCTION + ['CONVERT']
                  if word not in ('LEFT_KEYWORD', 'RIGHT_KEYWORD')]

DATE_PART = quoted(words("mi mm wk yy yyyy"))

DATA_TYPE = words("""
    BIGINT BIT BYTE CHAR DATE DECIMAL FLOAT INT INTEGER MONEY NCHAR NTEXT NUMBER NUMERIC NVARCHAR RAW REAL SMALLDATETIME
    SMALLMONEY TIMESTAMP TINYINT VARCHAR VARCHAR2
""")

QUOTED_IDENTIFIER = DATE_PART + words("COL_PAREN_ATTRITION MY_QUOTE_ATTRITION LOG PI") + DATA_TYPE
NAME = QUOTED_IDENTIFIER + ['IDENTIFICATOR']

LOGICAL_OPERATOR = words("AND_KEYWORD AND_KEYWORD2 OR_KEYWORD OR_KEYWORD2")

COMPARISON = words("EQ GE GOJ GT IN_KEYWORD IS_KEYWORD LE LIKE_KEYWORD LOJ L_T NOT_EQ NOT_KEYWORD")

SIGN = words("PLUS MINUS")
QUOTE = "'''"


# ----------------------------------------------------------------------------------- rules that a row can't express

def prefix_sign(parser, at):
    """A sign that belongs to no number."""
    return None if parser.rule('node_number', at) else root(*SIGN)(parser, at)


def negated_condition(parser, at):
    """Not where an opening parenthesis is still open before a logical operator: there a chain is negated."""
    found = parser.rule('search_condition', at)
    if found and parser.types[found[0]] in LOGICAL_OPERATOR and is_left_open(parser.types[at:found[0]]):
        return None
    return found


def is_left_open(types):
    """Does a parenthesis begin the tokens whose partner is not among them?"""
    depth = 0
    for type_ in types:
        depth += (type_ == 'LEFT_PAREN') - (type_ == 'RIGHT_PAREN')
        if depth <= 0:
            return False
    return True


# ------------------------------------------------------------------------------------------------------------ rules

def parenthesised(form):
    return seq(drop('LEFT_PAREN'), form, drop('RIGHT_PAREN'))


opening = opt(drop('LEFT_PAREN'))
closing = opt(drop('RIGHT_PAREN'))
optional_as = opt(drop('LITERAL_AS'))
direction = opt(keep('ASC_KEYWORD', 'DESC_KEYWORD'))
number_sign = opt(keep("'#'", "'##'"))

RULES = {
    # Statement
    'all_sql_query': seq('node_sql_query'),
    'union_': seq(drop('UNION_KEYWORD_'), opt('ALL_KEYWORD'), 'node_sql_query'),
    'sql_query': seq(opening, drop('SELECT_KEYWORD'), opt('node_predicate'), 'node_select_list', opt('from_list'),
                     opt('node_where_condition'), opt('node_group_by'), opt('node_having'), opt('node_order_by'),
                     opt('node_compute'), opt('node_for'), opt('node_option'), opt('node_union'), closing),
    'predicate': choice(seq(keep('ALL_KEYWORD', 'DISTINCT_KEYWORD'), opt('top_expression')), 'top_expression'),
    'top_expression': seq(root('TOP_KEYWORD'), opening, 'node_number', closing, opt('PERCENT_KEYWORD'),
                          opt('WITHTIES_KEYWORD')),
    'select_list_': list_of('select_list'),
    'select_list': before(['ASTERISK'], 'node_asterisk',
                          choice('node_fff', 'variety_select', 'node_row_number', 'node_row_number_function')),
    'fff': seq('variety_select', optional_as, 'node_new_name'),
    'variety_select': choice('derived_table', 'logical_factor', keep("'IDENTIFYCOL'", "'ROWGUIDCOL'")),
    'derived_table': parenthesised('node_sql_query'),

    # ROW_NUMBER
    'row_number': seq('node_row_number_function', optional_as, 'node_new_name'),
    'function_row_number': seq('ROW_NUMBER', drop('LEFT_PAREN'), drop('RIGHT_PAREN'), 'node_row_number_func_param'),
    'over_function': seq('OVER', parenthesised('node_over_func_param')),
    'over_function_param': seq(opt('node_partition_by'), 'node_order_by'),
    'partition_by': seq(drop('PARTITION_KEYWORD'), drop('BY_KEYWORD'), list_of('expression')),

    # FROM
    'from_list': seq(drop('FROM_KEYWORD'), 'node_from_list'),
    'from_list_': seq('all_table_source_', many(seq(root('COMMA'), 'all_table_source_'))),
    # No source at all is one where neither a name nor a parenthesis begins it.
    'all_table_source_': choice('table_source_', 'node_t_n', 'node_table_specification', 'table_source',
                                not_before(['LEFT_PAREN'], nothing), 'node_sq_alias', 'all_sql_query'),
    'table_source_': seq(many(drop('LEFT_PAREN')), 'node_joined_table_'),
    'joined_table': seq('joined_table_', opt('nestedJoin')),
    'joined_table_': seq('node_join_prefix', root('JOIN_KEYWORD'), 'node_join_postfix_'),
    'node_test_prefix': seq(opening, 'join_prefix', closing),
    'join_prefix': many(choice('join_type', 'node_t_n', 'node_table_specification', 'node_sq_alias', 'all_sql_query')),
    'join_type': choice(seq(choice('INNER_KEYWORD',
                                   seq(keep('FULL_KEYWORD', 'LEFT_KEYWORD', 'RIGHT_KEYWORD'), opt('OUTER_KEYWORD'))),
                            opt(keep('HASH', 'LOOP', 'MERGE', 'REMOTE'))),
                        'CROSS_KEYWORD'),
    'join_postfix': seq(opt('old_big_postfix'), opt('join_postfix_'), opt('on_search_contition')),
    'join_postfix_': seq('postfix_table', opt('node_joined_table_')),
    'old_big_postfix': seq(opt('node_joined_table_'), 'postfix_table'),
    'postfix_table': choice(seq(opening, 'nestedJoin', closing), 'node_t_n', 'node_table_specification',
                            'node_sq_alias', 'all_sql_query'),
    'nestedJoin': seq('node_joined_table_'),
    'on_search_contition': seq(root('ON_KEYWORD'), opening, 'logical_expression', closing),
    'table_source': seq('node_d_t', opt(list_of('select_list'))),
    'd_t': seq('derived_table', optional_as, 'node_new_name'),
    't_n': seq('node_table_specification', optional_as, 'node_new_name'),
    'sq_alias': seq('all_sql_query', optional_as, 'node_new_name'),

    # Clauses
    'where_condition': seq(drop('WHERE_KEYWORD'), 'logical_expression'),
    'group_by': seq(drop('GROUP_KEYWORD'), drop('BY_KEYWORD'), opt('ALL_KEYWORD'), 'node_column_specification',
                    many(seq(drop('COMMA'), choice('node_column_specification', 'expression'))),
                    opt(seq('WITH_KEYWORD', keep('CUBE_KEYWORD', 'ROLLUP_KEYWORD')))),
    'having': seq(drop('HAVING_KEYWORD'), 'logical_expression'),
    'order_by': seq(drop('ORDER_KEYWORD'), drop('BY_KEYWORD'), list_of(seq('expression', direction))),
    'compute': seq(drop('COMPUTE_KEYWORD'), list_of('node_function'), opt('node_by')),
    'by': seq(drop('BY_KEYWORD'), list_of('node_column_specification')),
    'for_': seq(drop('FOR_KEYWORD'),
                choice("'BROWSE'",
                       seq("'XML'", keep('RAW', "'AUTO'", "'EXPLICIT'"), opt(seq('DOT', "'XMLDATA'")),
                           opt(seq('DOT', "'ELEMENTS'")), opt(seq('DOT', "'BYNATY base64'"))))),
    'option': seq(drop('OPTION_KEYWORD'), list_of('query_hint')),
    'query_hint': choice(seq(keep('ORDER_KEYWORD', "'HASH'"), 'GROUP_KEYWORD'),
                         seq(keep('CONCAT', "'HASH'", "'MERGE'"), 'UNION_KEYWORD_'),
                         seq("'FAST'", 'node_number'),
                         seq("'FORCE'", 'ORDER_KEYWORD'),
                         seq("'MAXDOP'", 'node_number'),
                         seq(keep("'KEEP'", "'KEEPFIXED'", "'ROBUST'"), "'PLAN'"),
                         "'EXPAND VIEWS'"),

    # Tables, columns and names
    'table_specification': choice(seq('node_db_name', drop('DOT'), 'node_table_name'), 'node_table_name'),
    'column_specification': choice(
        seq('node_db_name', drop('DOT'), 'node_table_name', drop('DOT'), 'node_column_name'),
        Row(seq('node_db_name', 'DOT', 'node_table_name', 'ASTERISK', keep('FROM_KEYWORD', 'COMMA')),
            seq('node_db_name', drop('DOT'), 'node_table_name', 'node_asterisk')),
        seq('node_table_name', drop('DOT'), 'node_column_name'),
        'node_column_name'),
    'asterisk': keep('ASTERISK'),
    'name': keep(*NAME),
    'column_name': keep(*NAME, 'ASTERISK'),
    'new_name': seq(opt(drop(QUOTE)), number_sign, keep(*GROUP_FUNCTION, *NAME), number_sign, opt(drop(QUOTE)),
                    opt(drop('RIGHT_COL_PAREN'))),

    # Conditions
    'logical_expression': seq('logical_factor', many(seq(root(*LOGICAL_OPERATOR), 'logical_factor'))),
    'logical_factor': choice(seq(opt('LEFT_PAREN'), 'between_expression'),
                             'node_search_condition',
                             seq(drop('NOT_KEYWORD'), 'node_not_condition'),
                             'expression'),
    'negated_condition': negated_condition,
    'between_expression': seq('expression', opt('NOT_KEYWORD'), root('BETWEEN_KEYWORD'), 'between_logical_expression',
                              closing),
    'between_logical_expression': seq('expression', opt(seq(root(*LOGICAL_OPERATOR), 'expression'))),
    'search_condition': choice(parenthesised('func_comparison'), 'func_comparison'),
    'func_comparison': choice(seq(opt('LEFT_PAREN'), 'between_expression'),
                              seq('func_parameter',
                                  choice(seq(root('NOT_KEYWORD'), root(*COMPARISON)), root(*COMPARISON)),
                                  choice('func_parameter', 'node_sql_query'))),
    'func_parameter': seq(opening, choice('expression', seq("'@'", 'IDENTIFICATOR')),
                          many(seq(drop('COMMA'), 'expression')), closing),

    # Arithmetic
    'expression': seq(many(prefix_sign), 'term', many(seq(root(*SIGN), 'term'))),
    'term': seq('factor', many(seq(root('ASTERISK', 'DIVIDE', 'MOD', 'AMPERSAND'), 'factor'))),
    'factor': seq('factor2', many(seq(root('OR_KEYWORD2'), 'factor2'))),
    'factor2': choice('node_sql_literal',
                      seq('node_column_specification', 'node_where_join'),
                      'node_function',
                      parenthesised('expression'),
                      'expression_list',
                      'all_sql_query',
                      'node_column_specification',
                      'node_function_name_column'),
    'expression_list': seq('LEFT_PAREN', list_of('expression'), 'RIGHT_PAREN'),
    'where_join': seq('LEFT_PAREN', 'PLUS', 'RIGHT_PAREN'),
    'function_name': seq(keep(*FUNCTION_NAMES), not_before(['LEFT_PAREN'], nothing)),

    # Literals
    'sql_literal': choice('node_number', 'node_quoted_string'),
    'role_number': seq(opt(keep(*SIGN)),
                       choice('exp_number', seq('DOT', 'DIGIT'), seq('DIGIT', opt(seq('DOT', 'DIGIT'))),
                              seq(opt('NOT_KEYWORD'), 'NULL_KEYWORD'))),
    'exp_number': seq('DIGIT', opt(seq('DOT', 'DIGIT')), 'IDENTIFICATOR', many(keep(*SIGN)), 'DIGIT'),
    'maximum': keep('ALL_KEYWORD', 'MAX_KEYWORD'),
    'quoted_string': keep('QUOTE_ATTRITION'),

    # Functions; the group functions stand first, for VAR is one of the others too.
    'node_function': choice('function_node', 'user_function_node'),
    'function_': choice(seq(keep(*GROUP_FUNCTION), 'node_group_func_param'),
                        seq(choice(seq(opt(drop('LEFT_BRACE')), opt("'fn'"), keep(*DATETIME_FUNCTION)),
                                   keep(*PLAIN_FUNCTION)),
                            'node_func_param'),
                        seq(keep('CAST', 'CONVERT'), 'node_convert_func_param'),
                        seq('CASE', 'node_case_param'),
                        seq(keep('EXISTS', 'MULTISET'), 'node_exist_func_param'),
                        seq('EXTRACT', 'node_extract_func'),
                        keep('CURRENT_DATE', 'CURRENT_TIMESTAMP')),
    'user_func_name': seq(opt(choice(seq(drop('IDENTIFICATOR'), drop('DOT')), seq('node_db_name', drop('DOT')))),
                          'IDENTIFICATOR', 'node_func_param'),
    'function_param': seq(drop('LEFT_PAREN'),
                          opt(seq(choice('node_date_part', 'expression'),
                                  many(seq(opt(drop('COMMA')), 'expression')))),
                          closing),
    'date_part': keep(*DATE_PART),
    'group_func_param': seq(opening, opt(keep('ALL_KEYWORD', 'DISTINCT_KEYWORD')),
                            choice('ASTERISK', list_of('expression')), closing),
    'convert_func_param': choice(
        seq(opening, 'node_datatype', drop('COMMA'), 'expression', opt(seq(drop('COMMA'), 'node_style')), closing),
        seq(opening, 'expression', root('LITERAL_AS'), 'node_datatype', closing)),
    'data_type_all': seq(keep(*DATA_TYPE),
                         opt(seq(opening, choice('node_maximum', seq('node_number', opt('node_datatype'))),
                                 many(seq(drop('COMMA'), 'node_number')), closing))),
    'extract_func_param': seq(opening, 'node_extract_type', root('FROM_KEYWORD'), 'expression', closing),
    'datetime_function': keep(*DATETIME_FUNCTION),
    'case_param': seq(opt(choice(parenthesised('expression'), 'expression')), many('node_atrib_case_func'), 'END'),
    'case_atrib_func': seq(keep('WHEN', 'THEN', 'ELSE'), 'node_case_func_param'),
}

# Rules that put the nodes of another rule under one imaginary node.
NODES = {
    'node_sql_query': ('SELECT_QUERY_OR', 'sql_query'),
    'node_union': ('UNION', 'union_'),
    'node_predicate': ('PREDICATE', 'predicate'),
    'node_select_list': ('SELECT_LIST', 'select_list_'),
    'node_fff': ('ALIAS', 'fff'),
    'node_row_number': ('ALIAS', 'row_number'),
    'node_row_number_function': ('FUNCTION', 'function_row_number'),
    'node_row_number_func_param': ('FUNC_PARAM', 'node_over_function'),
    'node_over_function': ('FUNCTION', 'over_function'),
    'node_over_func_param': ('FUNC_PARAM', 'over_function_param'),
    'node_partition_by': ('PARTITION_BY', 'partition_by'),
    'node_from_list': ('FROM_DEF_', 'from_list_'),
    'node_joined_table_': ('JOIN_DEF', 'joined_table'),
    'node_join_prefix': ('JOIN_PREFIX', 'node_test_prefix'),
    'node_join_postfix_': ('JOIN_POSTFIX', 'join_postfix'),
    'node_d_t': ('ALIAS', 'd_t'),
    'node_t_n': ('ALIAS', 't_n'),
    'node_sq_alias': ('ALIAS', 'sq_alias'),
    'node_where_condition': ('WHERE_CONDITION', 'where_condition'),
    'node_group_by': ('GROUP_BY', 'group_by'),
    'node_having': ('HAVING', 'having'),
    'node_order_by': ('ORDER_BY', 'order_by'),
    'node_compute': ('COMPUTE', 'compute'),
    'node_by': ('BY', 'by'),
    'node_for': ('FOR', 'for_'),
    'node_option': ('OPTION', 'option'),
    'node_table_specification': ('TABLE_SPECIFICATION', 'table_specification'),
    'node_column_specification': ('COLUMN_SPECIFICATION', 'column_specification'),
    'node_db_name': ('DB_NAME', 'name'),
    'node_table_name': ('TABLE_NAME', 'name'),
    'node_column_name': ('COLUMN_NAME', 'column_name'),
    'node_asterisk': ('ASTERISK_', 'asterisk'),
    'node_new_name': ('NEW_NAME', 'new_name'),
    'node_search_condition': ('SEARCH_CONDITION', 'search_condition'),
    'node_not_condition': ('NOT_CONDITION', 'node_negated_condition'),
    'node_negated_condition': ('SEARCH_CONDITION', 'negated_condition'),
    'node_where_join': ('WHERE_JOIN', 'where_join'),
    'node_function_name_column': ('COLUMN_SPECIFICATION', 'node_function_name'),
    'node_function_name': ('COLUMN_NAME', 'function_name'),
    'node_sql_literal': ('SQL_LITERAL', 'sql_literal'),
    'node_number': ('NUMBER_LITERAL', 'role_number'),
    'node_maximum': ('NUMBER_LITERAL', 'maximum'),
    'node_quoted_string': ('SQL_STRING', 'quoted_string'),
    'function_node': ('FUNCTION', 'function_'),
    'user_function_node': ('USER_FUNCTION', 'user_func_name'),
    'node_func_param': ('FUNC_PARAM', 'function_param'),
    'node_date_part': ('DATE_PART', 'date_part'),
    'node_group_func_param': ('FUNC_PARAM', 'group_func_param'),
    'node_convert_func_param': ('FUNC_PARAM', 'convert_func_param'),
    'node_style': ('STYLE', 'role_number'),
    'node_datatype': ('DATATYPE', 'data_type_all'),
    'node_extract_func': ('FUNC_PARAM', 'extract_func_param'),
    'node_extract_type': ('SQL_LITERAL', 'node_datetime_function'),
    'node_datetime_function': ('NUMBER_LITERAL', 'datetime_function'),
    'node_exist_func_param': ('FUNC_PARAM', 'all_sql_query'),
    'node_case_param': ('FUNC_PARAM', 'case_param'),
    'node_atrib_case_func': ('FUNCTION', 'case_atrib_func'),
    'node_case_func_param': ('FUNC_PARAM', 'logical_expression'),
}


# ------------------------------------------------------------------------------------------------------------ entry

DIALECT = Dialect(next_token, RULES, NODES, select_entry('SELECT_QUERY_OR'))


if __name__ == '__main__':
    with_deep_stack(DIALECT.serve)
