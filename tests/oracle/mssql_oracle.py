#!/usr/bin/env python3
"""A plain second reading of the MS SQL dialect, to check the generated recognizers against.

As a program: newline-delimited {"id", "sql"} in, {"id", "tree", "status", "tokens"} out.
"""

import re

from engine import (CAPITALS, Dialect, Row, Token, before, choice, committed_token, drop, enclosed, keep,
                    keep_other_than, list_of, many, nothing, operator_token, opt, quoted, root, select_entry, seq,
                    with_deep_stack, words)


# ---------------------------------------------------------------------------------------------------- vocabulary

SYSTEM_VARIABLES = words("""
    @@CONNECTION @@DATEFIRST @@DBTS @@LANGID @@LANGUAGE @@LOCK_TIMEOUT @@MAX_CONNECTIONS @@MAX_PRECISION @@NESTLEVEL
    @@OPTIONS @@REMSERVER @@SERVERNAME @@SERVICENAME @@SPID @@TEXTSIZE @@VERSION
""")

# Matched case-sensitively, before the keywords; a token's name is its text in single quotes.
LITERAL_WORDS = words("""
    UCASE LCASE NOW n m mi yy ww wk mm yyyy d dw dd day hh h fn BROWSE XML RAW AUTO EXPLICIT XMLDATA ELEMENTS HASH
    MERGE FAST FORCE MAXDOP ROBUST KEEP KEEPFIXED PLAN WITH IDENTIFYCOL ROWGUIDCOL INTO INDEX FASTFIRSTROW HOLDLOCK
    NOLOCK PAGLOCK READCOMMITTED READPAST READUNCOMMITTED REPEATABLEREAD ROWLOCK SERIALIZABLE TABLOCK TABLOCKX UPDLOCK
    XLOCK
""")

# A word of this list and a blank commit the lexer to the whole literal.
LITERALS_WITH_BLANK = {'SET': 'SET TEXTSIZE', 'EXPAND': 'EXPAND VIEWS', 'BYNATY': 'BYNATY base64'}

KEYWORD_TOKENS = words("""
    SELECT_KEYWORD TOP_KEYWORD ALL_KEYWORD DISTINCT_KEYWORD PERCENT_KEYWORD WITHTIES_KEYWORD FROM_KEYWORD EXISTS
    LITERAL_AS INNER_KEYWORD JOIN_KEYWORD LEFT_KEYWORD RIGHT_KEYWORD FULL_KEYWORD OUTER_KEYWORD CROSS_KEYWORD
    WITH_KEYWORD ON_KEYWORD NULL_KEYWORD WHERE_KEYWORD CUBE_KEYWORD ROLLUP_KEYWORD HAVING_KEYWORD UNION_KEYWORD_
    GROUP_KEYWORD ORDER_KEYWORD ASC_KEYWORD DESC_KEYWORD COMPUTE_KEYWORD BY_KEYWORD FOR_KEYWORD OPTION_KEYWORD
    AND_KEYWORD OR_KEYWORD BETWEEN_KEYWORD LIKE_KEYWORD IS_KEYWORD NOT_KEYWORD IN_KEYWORD WHEN THEN ELSE END CASE
    DATETIME VARCHAR CHAR INT NUMERIC CONCAT FLOAT MONEY DECIMAL SMALLMONEY BIGINT BIT REAL SMALLDATETIME NVARCHAR
    TINYINT NTEXT TIMESTAMP INTEGER GETDATE WEEKDAY WEEK NOW DATEADD DATEDIFF DATENAME DATEPART DAY GETUTCDATE HOUR
    ISDATE MONTH MINUTE YEAR SECOND CONVERT CAST AVG BYNARY_CHECKSUM CHECKSUM COUNT COUNT_BIG GROUPING MAX_KEYWORD MIN
    SUM STDEV STDEVP VAR VARP ABS ACOS ASIN ATAN ATN2 CEILING COS COT DEGREES EXP FLOOR ISNUMERIC LOG LOG10 PI POWER
    RADIANS RAND ROUND SIGN SIN SQRT TAN ISNULL ASCII CHARINDEX COALESCE DIFFERENCE LEN LOWER LTRIM NCHAR PARINDEX
    QUOTENAME READTEXT REPLACE REPLICATE REVERSE RTRIM SOUNDEX SPACE STR STUFF SUBSTRING TEXTVALID UNICODE UPDATETEXT
    UPPER WRITETEXT LOOP HASH MERGE REMOTE IDENT_CURRENT NSTR
""")

# Two characters before one: the first that matches is the token.
OPERATORS = [
    ('!=', 'NOT_EQ'), ('<>', 'NOT_EQ'), ('<=', 'LE'), ('>=', 'GE'), ('*=', 'LOJ'), ('=*', 'GOJ'),
    ('&&', 'AND_KEYWORD2'), ('||', 'OR_KEYWORD2'), ('##', "'##'"), ('#', "'#'"), ("'", "'''"), ('@', "'@'"),
    ('[', 'LEFT_COL_PAREN'), (']', 'RIGHT_COL_PAREN'), ('"', 'MY_QUOTE'), ('`', 'MY_ONE_QUOTE'), ('{', 'LEFT_BRACE'),
    ('}', 'RIGHT_BRACE'), ('(', 'LEFT_PAREN'), (')', 'RIGHT_PAREN'), ('+', 'PLUS'), ('-', 'MINUS'),
    ('&', 'AMPERSAND'), ('/', 'DIVIDE'), ('.', 'DOT'), ('*', 'ASTERISK'), (',', 'COMMA'), ('|', 'VERTBAR'),
    ('%', 'MOD'), ('=', 'EQ'), ('<', 'L_T'), ('>', 'GT'),
]


def keyword_text(token):
    special = {'LITERAL_AS': 'AS', 'NSTR': 'N'}
    return special.get(token) or token.replace('_KEYWORD_', '').replace('_KEYWORD', '')


KEYWORDS = {keyword_text(token): token for token in KEYWORD_TOKENS}
LITERALS = dict(zip(LITERAL_WORDS, quoted(LITERAL_WORDS)))

WORD = re.compile('[!?A-Z_a-z][-!#?0-9A-Z_a-z]*')
DIGITS = re.compile('[0-9]+')


# --------------------------------------------------------------------------------------------------------- lexer

def next_token(units, at):
    """The token at a position, or None for a lost character, which every white space is, and the position behind."""
    if units.startswith('@@', at):
        return system_variable(units, at)
    if not units.startswith('!=', at) and (match := WORD.match(units, at)):
        return word_token(units, at, match.end())
    if (match := DIGITS.match(units, at)):
        return Token('DIGIT', match.group()), match.end()
    return operator_token(OPERATORS, units, at)


def system_variable(units, at):
    """Without a whole name the first of the two characters is lost."""
    for name, type_ in zip(SYSTEM_VARIABLES, quoted(SYSTEM_VARIABLES)):
        if units.startswith(name, at):
            return Token(type_, name), at + len(name)
    return None, at + 1


def word_token(units, at, end):
    word = units[at:end]
    if word in LITERALS_WITH_BLANK and units.startswith(' ', end):
        return committed_token(LITERALS_WITH_BLANK[word], units, at)
    if word in LITERALS:
        return Token(LITERALS[word], word), end
    return Token(KEYWORDS.get(word.translate(CAPITALS), 'IDENTIFICATOR'), word), end


# --------------------------------------------------------------------------------------------------- sets of tokens

GROUP_FUNCTION = words("""
    AVG BYNARY_CHECKSUM CHECKSUM COUNT COUNT_BIG GROUPING MAX_KEYWORD MIN SUM STDEV STDEVP VAR VARP
""")

NUMBER_FUNCTION = words("""
    ABS ACOS ASIN ATAN ATN2 CEILING COS COT DEGREES EXP FLOOR ISNUMERIC LOG LOG10 PI POWER RADIANS RAND ROUND SIGN SIN
    SQRT TAN
""")

STRING_FUNCTION = words("""
    LEFT_KEYWORD RIGHT_KEYWORD CHAR VAR ASCII CHARINDEX COALESCE DIFFERENCE LEN LOWER LTRIM NCHAR PARINDEX QUOTENAME
    READTEXT REPLACE REPLICATE REVERSE RTRIM SOUNDEX SPACE STR STUFF SUBSTRING TEXTVALID UNICODE UPDATETEXT UPPER
    WRITETEXT
""") + quoted(['SET TEXTSIZE'])

DATETIME_FUNCTION = words("""
    GETDATE WEEKDAY NOW DATEADD DATEDIFF DATENAME DATEPART DAY GETUTCDATE HOUR ISDATE MONTH MINUTE YEAR SECOND
""")

CONFIGURATION_FUNCTION = ['IDENT_CURRENT'] + quoted(SYSTEM_VARIABLES)

ESCAPED_FUNCTION = quoted(words("UCASE LCASE NOW"))

DATE_PART = words("WEEK MONTH YEAR") + quoted(words("n m mi yy ww wk mm yyyy d dw dd day hh h"))

DATA_TYPE = words("""
    DATETIME VARCHAR CHAR INT NUMERIC FLOAT MONEY DECIMAL SMALLMONEY BIGINT BIT REAL SMALLDATETIME NVARCHAR TINYINT
    NTEXT TIMESTAMP INTEGER NCHAR
""")

LOGICAL_OPERATOR = words("AND_KEYWORD AND_KEYWORD2 OR_KEYWORD OR_KEYWORD2")

COMPARISON = words("LIKE_KEYWORD IS_KEYWORD NOT_KEYWORD IN_KEYWORD EQ L_T GT NOT_EQ LE GE LOJ GOJ")

TABLE_HINT = quoted(words("""
    FASTFIRSTROW HOLDLOCK NOLOCK PAGLOCK READCOMMITTED READPAST READUNCOMMITTED REPEATABLEREAD ROWLOCK SERIALIZABLE
    TABLOCK TABLOCKX UPDLOCK XLOCK
"""))

SIGN = words("PLUS MINUS")
QUOTE = "'''"
QUOTING = words("LEFT_COL_PAREN MY_QUOTE MY_ONE_QUOTE")
NAME_START = DATE_PART + DATETIME_FUNCTION + QUOTING + ['IDENTIFICATOR']


# ------------------------------------------------------------------------------------------------------------ rules

def parenthesised(form):
    return seq(drop('LEFT_PAREN'), form, drop('RIGHT_PAREN'))


opening = opt(drop('LEFT_PAREN'))
closing = opt(drop('RIGHT_PAREN'))
name = choice('quoted_identifier', 'IDENTIFICATOR')
alias = opt(seq('LITERAL_AS', 'node_new_name'))
direction = opt(keep('ASC_KEYWORD', 'DESC_KEYWORD'))
number_sign = opt(keep("'#'", "'##'"))
operand = choice('expression', seq("'@'", 'IDENTIFICATOR'))
marked_column = seq('node_column_specification', 'LEFT_PAREN', 'PLUS', 'RIGHT_PAREN')
column = seq(opt(root('MINUS')), 'node_column_specification')

RULES = {
    # Statement
    'all_sql_query': seq('node_sql_query'),
    'sql_query': seq(opening, drop('SELECT_KEYWORD'), opt('node_predicate'), 'node_select_list', opt('from_list'),
                     opt('node_where_condition'), opt('node_group_by'), opt('node_having'), opt('node_order_by'),
                     opt('node_compute'), opt('node_for'), opt('node_option'), opt('node_union'), closing),
    'union_': seq(drop('UNION_KEYWORD_'), opt('ALL_KEYWORD'), 'node_sql_query'),
    'predicate': seq(opt(keep('ALL_KEYWORD', 'DISTINCT_KEYWORD')), opt('top_expression')),
    'top_expression': seq(root('TOP_KEYWORD'), opening, 'node_number', closing, opt('PERCENT_KEYWORD'),
                          opt('WITHTIES_KEYWORD')),
    'select_list_': list_of('select_list'),
    'select_list': choice('node_fff', 'variety_select', 'node_column_specification'),
    'fff': seq('variety_select', opt(seq(drop('LITERAL_AS'), 'node_new_name'))),
    'variety_select': choice('derived_table',
                             seq('expression', many(seq(root(*COMPARISON), 'expression'))),
                             keep("'IDENTIFYCOL'", "'ROWGUIDCOL'")),
    'derived_table': parenthesised('node_sql_query'),

    # FROM
    'from_list': seq(drop('FROM_KEYWORD'), 'node_from_list'),
    'from_list_': seq('all_table_source_', many(seq(root('COMMA'), 'all_table_source_'))),
    'all_table_source_': choice('table_source_', 'node_t_n', 'node_table_specification',
                                before(NAME_START + ['LEFT_PAREN'], 'table_source', nothing),
                                'column_specification', 'node_sq_alias', 'all_sql_query'),
    'table_source_': seq(many(drop('LEFT_PAREN')), 'node_joined_table_'),
    'joined_table': seq('joined_table_', opt('nestedJoin')),
    'joined_table_': choice(seq('node_join_prefix', root('JOIN_KEYWORD'), 'node_join_postfix_'),
                            seq(root('JOIN_KEYWORD'), 'node_join_postfix_')),
    'node_test_prefix': seq(opening, 'join_prefix', closing),
    'join_prefix': seq(many(choice(seq(choice('join_type', 'node_t_n', 'node_table_specification'),
                                       opt('node_table_hint')),
                                   'node_sq_alias')),
                       opt('join_type')),
    'join_type': choice(seq(choice('INNER_KEYWORD',
                                   seq(keep('LEFT_KEYWORD', 'RIGHT_KEYWORD', 'FULL_KEYWORD'), opt('OUTER_KEYWORD'))),
                            opt(keep('LOOP', 'HASH', 'MERGE', 'REMOTE'))),
                        'CROSS_KEYWORD'),
    'join_postfix': seq(opt('old_big_postfix'), opt('join_postfix_'), opt('on_search_contition')),
    'old_big_postfix': seq(opt('node_joined_table_'), 'postfix_table'),
    'join_postfix_': seq('postfix_table', many('node_joined_table_')),
    'postfix_table': seq(choice(seq(opening, 'nestedJoin', closing), 'node_t_n', 'node_table_specification',
                                'node_sq_alias', 'all_sql_query'),
                         opt('node_table_hint')),
    'nestedJoin': seq('node_joined_table_'),
    'on_search_contition': seq(opt(seq(root('ON_KEYWORD'), opening, 'node_search_condition1', closing)),
                               many(seq(root(*LOGICAL_OPERATOR), opening, 'node_search_condition1',
                                        many(drop('RIGHT_PAREN'))))),
    'table_source': choice(seq(choice('node_t_n', 'node_table_specification'), "'WITH'", opt(list_of('table_hint'))),
                           seq('node_d_t', opt(list_of('select_list')))),
    'd_t': seq('derived_table', alias),
    't_n': seq('node_table_specification', alias),
    'sq_alias': seq('all_sql_query', alias),

    # Clauses
    'where_condition': seq(drop('WHERE_KEYWORD'), 'logical_expression'),
    'group_by': seq(drop('GROUP_KEYWORD'), drop('BY_KEYWORD'), opt('ALL_KEYWORD'), list_of('expression'),
                    opt(seq('WITH_KEYWORD', keep('CUBE_KEYWORD', 'ROLLUP_KEYWORD')))),
    'having': seq(drop('HAVING_KEYWORD'), 'logical_expression'),
    'order_by': seq(drop('ORDER_KEYWORD'), drop('BY_KEYWORD'), list_of(seq('expression', direction))),
    'compute': seq('COMPUTE_KEYWORD', 'node_function', many(seq('COMMA', 'node_function')), opt('node_by')),
    'by': seq('BY_KEYWORD', 'node_column_specification', many(seq('COMMA', 'node_column_specification'))),
    'for_': seq(drop('FOR_KEYWORD'),
                choice("'BROWSE'",
                       seq("'XML'", keep("'RAW'", "'AUTO'", "'EXPLICIT'"), opt(seq('DOT', "'XMLDATA'")),
                           opt(seq('DOT', "'ELEMENTS'")), opt(seq('DOT', "'BYNATY base64'"))))),
    'option': seq('OPTION_KEYWORD', 'query_hint', many(seq('COMMA', 'query_hint'))),
    'query_hint': choice(seq(keep('ORDER_KEYWORD', "'HASH'"), 'GROUP_KEYWORD'),
                         seq(keep('CONCAT', "'HASH'", "'MERGE'"), 'UNION_KEYWORD_'),
                         seq("'FAST'", 'node_number'),
                         seq("'FORCE'", 'ORDER_KEYWORD'),
                         seq("'MAXDOP'", 'node_number'),
                         seq(keep("'ROBUST'", "'KEEP'", "'KEEPFIXED'"), "'PLAN'"),
                         "'EXPAND VIEWS'"),
    'table_hint': seq(drop("'WITH'"), parenthesised(list_of('table_hint_keyword'))),
    'table_hint_keyword': choice(seq("'INDEX'", 'node_number', many('node_number')), keep(*TABLE_HINT)),

    # Tables, columns and names
    'table_specification': choice(seq('node_db_name', drop('DOT'), 'node_table_name'), 'node_table_name'),
    'column_specification': choice(
        seq('node_db_name', drop('DOT'), 'node_table_name', drop('DOT'), 'node_column_name'),
        Row(seq('node_db_name', 'DOT', 'node_table_name', 'ASTERISK', keep('FROM_KEYWORD', 'COMMA')),
            seq('node_db_name', drop('DOT'), 'node_table_name', 'node_asterisk')),
        seq('node_table_name', drop('DOT'), 'node_column_name'),
        'node_column_name'),
    'asterisk': keep('ASTERISK'),
    'db_name': name,
    'table_name': name,
    'column_name': choice(keep('EXP', 'POWER', 'REMOTE'), name, 'ASTERISK'),
    'quoted_identifier': choice(keep(*DATE_PART), keep(*DATETIME_FUNCTION),
                                enclosed('LEFT_COL_PAREN', 'RIGHT_COL_PAREN'), enclosed('MY_QUOTE', 'MY_QUOTE'),
                                enclosed('MY_ONE_QUOTE', 'MY_ONE_QUOTE')),
    'new_name': seq(opt(drop(QUOTE)), number_sign, choice(keep(*GROUP_FUNCTION), name), number_sign, opt(drop(QUOTE)),
                    opt(drop('RIGHT_COL_PAREN'))),

    # Conditions
    'logical_expression': seq('logical_factor', many(seq(root(*LOGICAL_OPERATOR), 'logical_factor'))),
    'logical_factor': choice(
        seq(opt('LEFT_PAREN'), 'between_expression'),
        Row(seq('expression', keep(*COMPARISON)), seq(opt('NOT_KEYWORD'), 'node_search_condition')),
        'node_search_condition',
        Row(seq(opt('LEFT_PAREN'), 'NOT_KEYWORD', 'search_condition'), 'node_comparison_not')),
    'between_expression': seq('expression', opt('NOT_KEYWORD'), root('BETWEEN_KEYWORD'), 'between_logical_expression'),
    'between_logical_expression': seq('expression', keep(*LOGICAL_OPERATOR), 'expression'),
    'comparison_not': seq(opening, opt(root('NOT_KEYWORD')), 'search_condition', many(drop('RIGHT_PAREN'))),
    'search_condition': choice(parenthesised('func_comparison'), 'func_comparison'),
    'func_comparison': seq('func_parameter', root(*COMPARISON), choice('func_parameter', 'node_sql_query')),
    'func_parameter': seq(operand, many(seq(drop('COMMA'), 'expression'))),
    'search_condition1': choice(parenthesised('func_comparison1'), 'func_comparison1'),
    'func_comparison1': seq('func_parameter1',
                            opt(seq(root(*COMPARISON), choice('func_parameter1', 'node_sql_query')))),
    'func_parameter1': seq(opening, operand, closing),

    # Arithmetic
    'expression': seq(opt(root('MINUS')), 'term', many(seq(root(*SIGN), 'term'))),
    'term': seq('factor', many(seq(root('ASTERISK', 'DIVIDE', 'MOD', 'AMPERSAND', 'VERTBAR'), 'factor'))),
    'factor': seq(opt(root('PLUS')), 'factor2', many(seq('VERTBAR', 'VERTBAR', 'factor2'))),
    # The outer join's mark is looked for before any function.
    'factor2': choice(marked_column, 'node_sql_literal', 'all_node_function', 'node_func_alias',
                      seq(drop('LEFT_PAREN'), 'expression', closing), 'variable', 'expression_list',
                      'node_table_specification', 'all_sql_query', column),
    'expression_list': seq('LEFT_PAREN', list_of('expression'), 'RIGHT_PAREN'),
    'variable': choice(marked_column, column),
    'func_alias': seq('all_node_function', alias),

    # Literals
    'sql_literal': choice('node_number', 'node_date_literal', 'node_quoted_string'),
    'maximum': keep('ALL_KEYWORD', 'MAX_KEYWORD'),
    'number': seq(opt(keep(*SIGN)),
                  choice('exp_number', seq('DOT', 'DIGIT'), seq('DIGIT', opt(seq('DOT', 'DIGIT'))),
                         seq(opt('NOT_KEYWORD'), 'NULL_KEYWORD'))),
    'exp_number': seq('DIGIT', opt(seq('DOT', 'DIGIT')), 'IDENTIFICATOR', many(keep(*SIGN)), 'DIGIT'),
    'd_date_literal': seq(QUOTE,
                          choice(seq('number', 'DIVIDE', 'number', 'DIVIDE', 'number'),
                                 seq('IDENTIFICATOR', 'number', opt('COMMA'), 'number')),
                          QUOTE),
    'quoted_string': seq(opt(drop('NSTR')), drop(QUOTE), many(keep_other_than(QUOTE)), drop(QUOTE)),

    # CASE
    'case_function': seq('CASE', 'node_case_param'),
    'case_param': seq(opt(choice(parenthesised('expression'), 'expression')), many('node_atrib_case_func'), 'END'),
    'case_atrib_func': choice(seq('WHEN', 'node_case_when_func_param'),
                              seq(keep('THEN', 'ELSE'), 'node_case_func_param')),
    'result_logical_expression': choice('logical_expression', parenthesised('expression'), 'expression'),
    'result_expression': seq('expression'),

    # Functions
    'all_node_function': seq('node_function'),
    'node_function': choice('function_node', before(QUOTING + ['IDENTIFICATOR'], 'user_function_node'),
                            'convert_function_node', 'date_function_node'),
    'function_': seq('function', opt('node_func_param'), opt(drop('RIGHT_BRACE'))),
    'function': choice('case_function', 'group_function_', keep(*NUMBER_FUNCTION), keep(*STRING_FUNCTION),
                       seq(opt(drop('LEFT_BRACE')), root("'fn'"), 'fn_function', opt(drop('RIGHT_BRACE'))),
                       keep(*CONFIGURATION_FUNCTION), 'ISNULL', 'exist_func'),
    'fn_func': seq(keep(*ESCAPED_FUNCTION), choice('node_no_param', 'node_group_func_param')),
    'no_param': parenthesised(nothing),
    'group_function_': seq(keep(*GROUP_FUNCTION), 'node_group_func_param'),
    'exist_func': seq('EXISTS', 'node_exist_func_param'),
    'convert_function': seq(keep('CONVERT', 'CAST'), 'node_convert_func_param'),
    'date_function': seq(keep(*DATETIME_FUNCTION), 'node_date_func_param'),
    'user_func_name': seq(choice(drop('IDENTIFICATOR'), seq('node_db_name', drop('DOT'), 'IDENTIFICATOR')),
                          'node_func_param'),
    'function_param': seq(drop('LEFT_PAREN'),
                          opt(seq(choice('node_date_part', 'expression'),
                                  many(seq(opt(drop('COMMA')), 'expression')))),
                          closing),
    'group_func_param': seq(opening, opt(keep('ALL_KEYWORD', 'DISTINCT_KEYWORD')),
                            choice('ASTERISK', list_of('expression')), closing),
    'convert_func_param': choice(
        seq(opening, 'node_datatype', drop('COMMA'), 'expression', opt(seq(drop('COMMA'), 'node_style')), closing),
        seq(opening, 'expression', root('LITERAL_AS'), 'node_datatype', closing)),
    'data_type_all': seq(keep(*DATA_TYPE),
                         opt(seq(opening, choice('node_maximum', list_of('node_number')), closing))),
    'date_func_param': parenthesised(seq(opt(choice('node_date_part', 'expression')),
                                         many(seq(drop('COMMA'), 'expression')))),
    'date_part': keep(*DATE_PART),
}

# Rules that put the nodes of another rule under one imaginary node.
NODES = {
    'node_sql_query': ('SELECT_QUERY_', 'sql_query'),
    'node_union': ('UNION', 'union_'),
    'node_predicate': ('PREDICATE', 'predicate'),
    'node_select_list': ('SELECT_LIST', 'select_list_'),
    'node_fff': ('ALIAS', 'fff'),
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
    'node_table_hint': ('TABLE_HINT', 'table_hint'),
    'node_table_specification': ('TABLE_SPECIFICATION', 'table_specification'),
    'node_column_specification': ('COLUMN_SPECIFICATION', 'column_specification'),
    'node_db_name': ('DB_NAME', 'db_name'),
    'node_table_name': ('TABLE_NAME', 'table_name'),
    'node_column_name': ('COLUMN_NAME', 'column_name'),
    'node_asterisk': ('ASTERISK_', 'asterisk'),
    'node_new_name': ('NEW_NAME', 'new_name'),
    'node_comparison_not': ('SEARCH_CONDITION', 'comparison_not'),
    'node_search_condition': ('SEARCH_CONDITION', 'search_condition'),
    'node_search_condition1': ('SEARCH_CONDITION', 'search_condition1'),
    'node_func_alias': ('ALIAS', 'func_alias'),
    'node_sql_literal': ('SQL_LITERAL', 'sql_literal'),
    'node_number': ('NUMBER_LITERAL', 'number'),
    'node_maximum': ('NUMBER_LITERAL', 'maximum'),
    'node_date_literal': ('DATE', 'd_date_literal'),
    'node_quoted_string': ('SQL_STRING', 'quoted_string'),
    'node_case_param': ('FUNC_PARAM', 'case_param'),
    'node_atrib_case_func': ('FUNCTION', 'case_atrib_func'),
    'node_case_when_func_param': ('FUNC_PARAM', 'result_logical_expression'),
    'node_case_func_param': ('FUNC_PARAM', 'result_expression'),
    'function_node': ('FUNCTION', 'function_'),
    'user_function_node': ('USER_FUNCTION', 'user_func_name'),
    'convert_function_node': ('FUNCTION', 'convert_function'),
    'date_function_node': ('FUNCTION', 'date_function'),
    'fn_function': ('FUNCTION', 'fn_func'),
    'node_exist_func_param': ('FUNC_PARAM', 'all_sql_query'),
    'node_func_param': ('FUNC_PARAM', 'function_param'),
    'node_no_param': ('FUNC_PARAM', 'no_param'),
    'node_group_func_param': ('FUNC_PARAM', 'group_func_param'),
    'node_convert_func_param': ('FUNC_PARAM', 'convert_func_param'),
    'node_style': ('STYLE', 'number'),
    'node_datatype': ('DATATYPE', 'data_type_all'),
    'node_date_func_param': ('FUNC_PARAM', 'date_func_param'),
    'node_date_part': ('DATE_PART', 'date_part'),
}


DIALECT = Dialect(next_token, RULES, NODES, select_entry('SELECT_QUERY_'))


if __name__ == '__main__':
    with_deep_stack(DIALECT.serve)
