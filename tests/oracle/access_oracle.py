#!/usr/bin/env python3
"""A plain second reading of the Access dialect, to check the generated recognizers against.

A text that does not begin with SELECT has a tree, though a parser error is reported.

As a program: newline-delimited {"id", "sql"} in, {"id", "tree", "status", "tokens"} out.
"""

import re

from engine import (CAPITALS, Dialect, Row, Token, before, choice, committed_token, drop, enclosed_token, error_entry,
                    imaginary_root, keep, list_of, many, not_before, nothing, operator_token, opt, quoted, root, seq,
                    strict_many, strict_opt, with_deep_stack, words)


# ---------------------------------------------------------------------------------------------------- vocabulary

# Matched case-sensitively, before the keywords; a token's name is its text in single quotes.
LITERAL_WORDS = words("""
    AUTO BROWSE CONVERT ELEMENTS EXPLICIT FAST FASTFIRSTROW FORCE HASH HOLDLOCK IDENTIFYCOL INDEX INTO KEEP
    KEEPFIXED LOOP MAXDOP MERGE NOLOCK PAGLOCK PLAN RAW READCOMMITTED READPAST READUNCOMMITTED REMOTE REPEATABLEREAD
    ROBUST ROWGUIDCOL ROWLOCK SERIALIZABLE TABLOCK TABLOCKX UPDLOCK WITH XLOCK XML XMLDATA count d day dd dw fn m mi
    mm month n week wk ww year yy yyyy
""")

# A word of this list and a blank commit the lexer to the whole literal.
LITERALS_WITH_BLANK = {'EXPAND': 'EXPAND VIEWS', 'BYNATY': 'BYNATY base64'}

KEYWORD_TOKENS = words("""
    SELECT_KEYWORD TOP_KEYWORD ALL_KEYWORD DISTINCT_KEYWORD DISTINCTROW_KEYWORD PERCENT_KEYWORD WITHTIES_KEYWORD
    FROM_KEYWORD EXISTS LITERAL_AS INNER_KEYWORD JOIN_KEYWORD LEFT_KEYWORD LEFT_KEYWORD_DOLLAR RIGHT_KEYWORD
    RIGHT_KEYWORD_DOLLAR FULL_KEYWORD OUTER_KEYWORD NATURAL_KEYWORD CROSS_KEYWORD WITH_KEYWORD ON_KEYWORD
    NULL_KEYWORD NOT_NULL_KEYWORD WHERE_KEYWORD CUBE_KEYWORD ROLLUP_KEYWORD HAVING_KEYWORD UNION_KEYWORD
    GROUP_KEYWORD ORDER_KEYWORD ASC_KEYWORD DESC_KEYWORD COMPUTE_KEYWORD BY_KEYWORD FOR_KEYWORD OPTION_KEYWORD
    AND_KEYWORD OR_KEYWORD BETWEEN_KEYWORD LIKE_KEYWORD IS_KEYWORD NOT_KEYWORD IN_KEYWORD CASE DATETIME VARCHAR CHAR
    INT NUMERIC CONCAT FLOAT MONEY DECIMAL SMALLMONEY BIGINT BIT REAL SMALLDATETIME NVARCHAR TINYINT NTEXT TIMESTAMP
    INTEGER GETDATE WEEKDAY NOW DATEADD DATEDIFF DATENAME DATEPART DAY GETUTCDATE HOUR ISDATE MONTH MINUTE YEAR
    SECOND DATE DATE_DOLLAR DATESERIAL DATEVALUE DDB TIME TIME_DOLLAR TIMER TIMESERIAL TIMEVALUE CONVERT CAST AVG
    BYNARY_CHECKSUM CHECKSUM COUNT COUNT_BIG GROUPING MAX_KEYWORD MIN SUM STDEV STDEVP VAR VARP ABS ACOS ASIN ATAN
    ATN2 CEILING COS COT DEGREES EXP FLOOR ISNUMERIC LOG LOG10 PI POWER RADIANS RAND ROUND SIGN SIN SQRT TAN ISNULL
    ASCII CHARINDEX COALESCE LEN LOWER LTRIM LTRIM_DOLLAR NCHAR PARINDEX QUOTENAME READTEXT REPLACE REPLICATE
    REVERSE RTRIM RTRIM_DOLLAR SOUNDEX SPACE SPACE_DOLLAR STR STR_DOLLAR STUFF SUBSTRING TEXTVALID UNICODE
    UPDATETEXT UPPER ASCB ASCW CHR CHR_DOLLAR CHRB CHRB_DOLLAR CHRW CHRW_DOLLAR FORMAT FORMAT_DOLLAR INSTR INSTRREV
    LEFTB LEFTB_DOLLAR LENB MID MID_DOLLAR MIDB MIDB_DOLLAR RIGHTB RIGHTB_DOLLAR STRCOMP STRCONV STRING
    STRING_DOLLAR TRIM TRIM_DOLLAR WRITETEXT LOOP HASH MERGE REMOTE IDENT_CURRENT ERROR ERROR_DOLLAR FIX FV HEX
    ICASE IIF CHOOSE IMESTATUS IPMT IRR ISEMPTY ISERROR ISOBJECT MIRR NPER NPV OCT PARTITION PMT PPMT PV QBCOLOR
    RATE RGB SLN SWITCH SYD TYPENAME UCASE LCASE VARTYPE DLOOKUP LAST FIRST DCOUNT HEX_DOLLAR ICASE_DOLLAR
    OCT_DOLLAR UCASE_DOLLAR LCASE_DOLLAR MOD_KEYWORD CBOOL CCUR CDBL CINT CSTR CVDATE CBYTE CDATE CLNG CSNG CVAR
    CVERR VAL FALSE_KEYWORD TRUE_KEYWORD
""")

# Two characters before one: the first that matches is the token.
OPERATORS = [
    ('&&', 'AND_KEYWORD2'), ('||', 'OR_KEYWORD2'), ('!=', 'NOT_EQ'), ('<>', 'NOT_EQ'), ('<=', 'LE'), ('>=', 'GE'),
    ('*=', 'LOJ'), ('=*', 'GOJ'), ('#', "'#'"), (':', "':'"), ('@', "'@'"), (']', 'RIGHT_COL_PAREN'),
    ('`', 'MY_ONE_QUOTE'), ('{', 'LEFT_BRACE'), ('}', 'RIGHT_BRACE'), ('(', 'LEFT_PAREN'), (')', 'RIGHT_PAREN'),
    ('+', 'PLUS'), ('-', 'MINUS'), ('&', 'AMPERSAND'), ('/', 'DIVIDE'), ('.', 'DOT'), ('*', 'ASTERISK'),
    (',', 'COMMA'), ('|', 'VERTBAR'), ('%', 'MOD1'), ('^', 'MOD'), ('$', 'DOLLAR'), ('!', 'EXCLAMATION_MARK'),
    ('=', 'EQ'), ('<', 'L_T'), ('>', 'GT'),
]

# Opening character: closing character, token with a body, token of the opening character at the end of the text.
ENCLOSED = {
    '[': (']', 'COL_PAREN_ATTRITION', 'LEFT_COL_PAREN'),
    "'": ("'", 'QUOTE_ATTRITION', 'QUOTE'),
    '"': ('"', 'MY_QUOTE_ATTRITION', 'MY_QUOTE'),
}


def keyword_text(token):
    special = {'LITERAL_AS': 'AS', 'NOT_NULL_KEYWORD': 'NOTNULL'}
    return special.get(token) or token.replace('_DOLLAR', '$').replace('_KEYWORD', '')


KEYWORDS = {keyword_text(token): token for token in KEYWORD_TOKENS}
LITERALS = dict(zip(LITERAL_WORDS, quoted(LITERAL_WORDS)))

WORD = re.compile('[A-Z_a-z\x80-\ufffe][A-Z_a-z0-9\x80-\ufffe]*')
DIGITS = re.compile('[0-9]+')
SPACE_UNIT = re.compile('\r\n|[ \t\n\r]')


# --------------------------------------------------------------------------------------------------------- lexer

def next_token(units, at):
    """The token at a position, or None for lost characters, and the position behind."""
    if (match := SPACE_UNIT.match(units, at)):
        return Token('WS', match.group(), True), match.end()
    if (match := WORD.match(units, at)):
        return word_token(units, at, match.end())
    if (match := DIGITS.match(units, at)):
        return Token('DIGIT', match.group()), match.end()
    if units[at] in ENCLOSED:
        return enclosed_token(ENCLOSED, units, at)
    return operator_token(OPERATORS, units, at)


def word_token(units, at, end):
    word = units[at:end]
    if word in LITERALS_WITH_BLANK and units.startswith(' ', end):
        return committed_token(LITERALS_WITH_BLANK[word], units, at)
    if word in LITERALS:
        return Token(LITERALS[word], word), end
    capitals = word.translate(CAPITALS)
    if units.startswith('$', end) and capitals + '$' in KEYWORDS:
        return Token(KEYWORDS[capitals + '$'], word + '$'), end + 1
    return Token(KEYWORDS.get(capitals, 'IDENTIFICATOR'), word), end


# --------------------------------------------------------------------------------------------------- sets of tokens

DATE_PART = quoted(words("count d day dd dw m mi mm month n week wk ww year yy yyyy"))

DATETIME_FUNCTION = words("""
    DATE DATEADD DATEDIFF DATEPART DATESERIAL DATEVALUE DATE_DOLLAR DAY DDB GETDATE GETUTCDATE HOUR ISDATE MINUTE
    MONTH NOW SECOND TIME TIMER TIMESERIAL TIMEVALUE TIME_DOLLAR WEEKDAY YEAR
""")

NUMBER_FUNCTION = words("""
    ABS ACOS ASIN ATAN ATN2 AVG CEILING COS COT COUNT DEGREES EXP FLOOR INT ISNUMERIC LOG LOG10 MAX_KEYWORD MIN PI
    POWER RADIANS RAND ROUND SIGN SIN SQRT SUM TAN
""")

STRING_FUNCTION = words("""
    ASCB ASCW ASC_KEYWORD CHR CHRB CHRB_DOLLAR CHRW CHRW_DOLLAR CHR_DOLLAR FORMAT FORMAT_DOLLAR INSTR INSTRREV LEFTB
    LEFTB_DOLLAR LEFT_KEYWORD LEFT_KEYWORD_DOLLAR LEN LENB LTRIM LTRIM_DOLLAR MID MIDB MIDB_DOLLAR MID_DOLLAR RIGHTB
    RIGHTB_DOLLAR RIGHT_KEYWORD RIGHT_KEYWORD_DOLLAR RTRIM RTRIM_DOLLAR SPACE SPACE_DOLLAR STR STRCOMP STRCONV
    STRING STRING_DOLLAR STR_DOLLAR TRIM TRIM_DOLLAR
""")

OTHER_FUNCTION = words("""
    CHOOSE DCOUNT DLOOKUP ERROR ERROR_DOLLAR FIRST FIX FV HEX HEX_DOLLAR ICASE ICASE_DOLLAR IMESTATUS IPMT IRR
    ISEMPTY ISERROR ISNULL ISOBJECT LAST LCASE LCASE_DOLLAR MIRR NPER NPV OCT OCT_DOLLAR PARTITION PMT PPMT PV
    QBCOLOR RATE RGB SLN SWITCH SYD TYPENAME UCASE UCASE_DOLLAR VARTYPE
""")

CONFIGURATION_FUNCTION = words("CBOOL CBYTE CCUR CDATE CDBL CINT CLNG CSNG CSTR CVAR CVDATE CVERR VAL")

DATA_TYPE = words("""
    BIGINT BIT CHAR DATETIME DECIMAL FLOAT INT INTEGER MONEY NCHAR NTEXT NUMERIC NVARCHAR REAL SMALLDATETIME
    SMALLMONEY TIMESTAMP TINYINT VARCHAR
""")

QUOTED_IDENTIFIER = (DATE_PART + DATETIME_FUNCTION + OTHER_FUNCTION + NUMBER_FUNCTION + STRING_FUNCTION +
                     ['DESC_KEYWORD', 'COL_PAREN_ATTRITION'])

NAME_START = QUOTED_IDENTIFIER + ['DIGIT', 'IDENTIFICATOR']

LOGICAL_OPERATOR = words("AND_KEYWORD AND_KEYWORD2 OR_KEYWORD OR_KEYWORD2")

COMPARISON = words("EQ GE GOJ GT IN_KEYWORD IS_KEYWORD LE LIKE_KEYWORD LOJ L_T NOT_EQ NOT_KEYWORD")

TABLE_HINT = quoted(words("""
    FASTFIRSTROW HOLDLOCK NOLOCK PAGLOCK READCOMMITTED READPAST READUNCOMMITTED REPEATABLEREAD ROWLOCK SERIALIZABLE
    TABLOCK TABLOCKX UPDLOCK XLOCK
"""))

SIGN = ('PLUS', 'MINUS')
PARAMETER_WORDS = ("'@'", "'IDENTIFYCOL'", "'ROWGUIDCOL'")


# ----------------------------------------------------------------------------------- rules that a row can't express

def table_clause(parser, at):
    """FROM: a clause without any source is none."""
    found = seq(drop('FROM_KEYWORD'), 'node_from_list')(parser, at)
    return found if found and found[1][0][1].children else None


def signed(parser, at):
    """A prefix sign: not where it belongs to a number, unless that number begins the name of a called function."""
    if parser.rule('node_number', at) and not parser.rule('user_func_name', at + 1):
        return None
    return root(*SIGN)(parser, at)


def parenthesised_condition(parser, at):
    """The guess of a condition in parentheses, as against an arithmetic expression in parentheses."""
    found = seq('LEFT_PAREN', 'logical_factor', 'RIGHT_PAREN')(parser, at)
    return found if found and is_condition(parser, at + 1) else None


def is_condition(parser, at):
    """Does a logical factor hold a condition, itself or within parentheses around it?"""
    while not any(form(parser, at) for form in CONDITION_FORMS):
        factor = parser.rule('logical_factor', at)
        first = parser.rule('logical_factor', at + 1)
        inner = parser.rule('logical_expression', at + 1)
        if parser.types[at] != 'LEFT_PAREN' or inner is None:
            return False
        if first[0] != inner[0] or inner[0] + 1 != factor[0]:
            return True
        at += 1
    return True


# ------------------------------------------------------------------------------------------------------------ rules

between = seq('expression', opt('NOT_KEYWORD'), 'BETWEEN_KEYWORD')
between_tail = seq('expression', opt('NOT_KEYWORD'), root('BETWEEN_KEYWORD'), 'between_logical_expression')
alias = opt(seq(drop('LITERAL_AS'), 'node_new_name'))
name = choice(keep(*QUOTED_IDENTIFIER), 'id_IDENTIFICATOR')
parameter_start = choice('expression', seq("'@'", 'id_IDENTIFICATOR'))
hint_list = seq('LEFT_PAREN', list_of('table_hint'), drop('RIGHT_PAREN'))
comparison_tail = seq(root(*COMPARISON), 'expression')
compared = seq('expression', many(comparison_tail))

CONDITION_FORMS = [
    seq('LEFT_PAREN', between, 'between_logical_expression', 'RIGHT_PAREN'),
    seq(between, 'between_logical_expression'),
    seq(opt('NOT_KEYWORD'), 'node_search_condition'),
]

RULES = {
    # Statement
    'all_sql_query': seq('node_sql_query'),
    'union_': seq(drop('UNION_KEYWORD'), opt('ALL_KEYWORD'), 'node_sql_query'),
    'sql_query': seq(drop('SELECT_KEYWORD'), opt('node_predicate'), 'node_select_list', opt('from_list'),
                     opt('node_where_condition'), opt('node_group_by'), opt('node_having'), opt('node_order_by'),
                     opt('node_compute'), opt('node_for'), opt('node_option'), opt('node_union')),
    'predicate': choice(seq(keep('ALL_KEYWORD', 'DISTINCT_KEYWORD', 'DISTINCTROW_KEYWORD'),
                            strict_opt(['TOP_KEYWORD'], 'top_expression')),
                        'top_expression'),
    'top_expression': seq(root('TOP_KEYWORD'), opt(drop('LEFT_PAREN')), 'node_number', opt(drop('RIGHT_PAREN')),
                          opt('PERCENT_KEYWORD'), opt('WITHTIES_KEYWORD')),
    'select_list_': list_of('select_list'),
    'sql_sub_query': seq(drop('LEFT_PAREN'), 'all_sql_query', drop('RIGHT_PAREN')),
    'select_list': seq(
        choice(Row(seq('logical_factor', keep(*LOGICAL_OPERATOR)), 'logical_expression'),
               Row(seq('LEFT_PAREN', 'logical_factor', keep(*LOGICAL_OPERATOR)),
                   seq('LEFT_PAREN', 'logical_expression', 'RIGHT_PAREN')),
               Row(seq('LEFT_PAREN', between), 'between_expression_whis_paren'),
               Row(between, 'between_expression'),
               seq(opt('NOT_KEYWORD'), 'node_search_condition'),
               seq(opt('LEFT_PAREN'), opt('NOT_KEYWORD'), 'node_search_condition', opt('RIGHT_PAREN')),
               'variety_select',
               seq('LEFT_PAREN', 'variety_select', 'RIGHT_PAREN')),
        opt(seq(root('LITERAL_AS'), 'node_new_name'))),

    # FROM
    'from_list': table_clause,
    'from_list_': list_of('all_table_source_'),
    'all_table_source_': choice('table_source_', 'node_t_n', 'node_table_specification',
                                strict_opt(NAME_START + ['LEFT_PAREN'], 'table_source'),
                                'column_specification', 'node_sq_alias', 'all_sql_query'),
    'table_source_': seq('node_joined_table_'),
    'big_joined_table': seq('joined_table', opt('nestedJoin')),
    'joined_table': seq('joined_table_'),
    'joined_table_': choice(seq('node_join_prefix', root('JOIN_KEYWORD'), 'node_join_postfix_'),
                            Row(seq('LEFT_PAREN', 'big_joined_table'),
                                seq(root('LEFT_PAREN'), 'big_joined_table', 'RIGHT_PAREN'))),
    'join_prefix': seq(many(choice('node_join_type',
                                   Row(seq('node_table_specification', 'join_type'), 'node_table_specification'),
                                   Row(seq('node_table_specification', 'JOIN_KEYWORD'), 'node_table_specification'),
                                   'node_t_n',
                                   'node_sq_alias')),
                       opt('node_join_type')),
    'node_big_postfix': seq(opt('node_joined_table_'), opt('postfix_table'), opt('join_postfix_'),
                            opt('on_search_contition')),
    'join_postfix_': seq('postfix_table', opt('node_joined_table_')),
    'on_search_contition': seq(root('ON_KEYWORD'), 'node_search_condition',
                               many(seq(root(*LOGICAL_OPERATOR), 'node_search_condition'))),
    'postfix_table': seq(choice('nestedJoin', 'node_sq_alias', 'node_t_n', 'node_table_specification',
                                'all_sql_query'),
                         opt('node_table_hint')),
    'nestedJoin': choice(seq('LEFT_PAREN', 'node_joined_table_'), 'node_joined_table_'),
    'join_type': choice(keep('CROSS_KEYWORD', 'INNER_KEYWORD'),
                        seq(opt('NATURAL_KEYWORD'), keep('LEFT_KEYWORD', 'RIGHT_KEYWORD'), opt('OUTER_KEYWORD'))),
    'table_source': choice(seq(choice('node_t_n', 'node_table_specification'),
                               opt(Row(seq("'WITH'", strict_opt(['LEFT_PAREN'], hint_list)),
                                       seq("'WITH'", opt(hint_list))))),
                           seq('node_d_t',
                               opt(Row(seq('select_list', strict_many(['COMMA'], seq('COMMA', 'select_list'))),
                                       list_of('select_list'))))),

    # Clauses
    'where_condition': seq(drop('WHERE_KEYWORD'), 'logical_expression'),
    'group_by': seq(drop('GROUP_KEYWORD'), drop('BY_KEYWORD'), opt('ALL_KEYWORD'), list_of('logical_expression'),
                    opt(seq('WITH_KEYWORD', keep('CUBE_KEYWORD', 'ROLLUP_KEYWORD')))),
    'order_by': seq(drop('ORDER_KEYWORD'), drop('BY_KEYWORD'),
                    list_of(seq('select_list', opt(keep('ASC_KEYWORD', 'DESC_KEYWORD'))))),
    'having': seq(drop('HAVING_KEYWORD'), 'logical_expression'),
    'compute': seq(drop('COMPUTE_KEYWORD'), list_of('all_node_function'), opt('node_by')),
    'by': seq(drop('BY_KEYWORD'), list_of('node_column_specification')),
    'for_': seq(drop('FOR_KEYWORD'),
                choice("'BROWSE'",
                       seq("'XML'", keep("'RAW'", "'AUTO'", "'EXPLICIT'"), opt(seq('DOT', "'XMLDATA'")),
                           opt(seq('DOT', "'ELEMENTS'")), opt(seq('DOT', "'BYNATY base64'"))))),
    'option': seq(drop('OPTION_KEYWORD'), list_of('query_hint')),
    'query_hint': choice(seq(keep('ORDER_KEYWORD', "'HASH'"), 'GROUP_KEYWORD'),
                         seq(keep('CONCAT', "'HASH'", "'MERGE'"), 'UNION_KEYWORD'),
                         seq("'FAST'", 'node_number'),
                         seq("'FORCE'", 'ORDER_KEYWORD'),
                         seq("'MAXDOP'", 'node_number'),
                         seq(keep("'KEEP'", "'KEEPFIXED'", "'ROBUST'"), "'PLAN'"),
                         "'EXPAND VIEWS'"),

    # Tables and columns
    'table_specification': choice(seq('node_db_name', drop('DOT'), 'node_table_name'), 'node_table_name'),
    'column_specification_pre': choice(
        Row(seq('LEFT_COL_PAREN', 'node_table_name', 'DOT', 'node_column_name', 'RIGHT_COL_PAREN'),
            seq(drop('LEFT_COL_PAREN'), 'column_specification', drop('RIGHT_COL_PAREN'))),
        'column_specification'),
    'column_specification': choice(
        'query_list_specification',
        seq('node_db_name', drop('DOT'), 'node_table_name', drop('DOT'), 'node_column_name'),
        Row(seq('node_db_name', 'DOT', 'node_table_name', 'ASTERISK', keep('COMMA', 'FROM_KEYWORD')),
            seq('node_db_name', drop('DOT'), 'node_table_name', 'node_asterisk')),
        seq('node_table_name', drop('DOT', 'EXCLAMATION_MARK'), 'node_column_name'),
        'node_column_name'),
    'query_list_specification': choice(
        seq('node_db_name', drop('DOT'), 'node_db_name', drop('DOT'), 'node_table_name', drop('DOT'),
            'node_column_name'),
        seq('node_db_name', drop('DOT'), 'node_db_name', drop('DOT'), 'node_db_name', drop('DOT'),
            'node_table_name', drop('DOT'), 'node_column_name')),
    'd_t': seq('derived_table', alias),
    't_n': seq('node_table_specification', alias),
    'sq_alias': seq(drop('LEFT_PAREN'), 'all_sql_query', drop('RIGHT_PAREN'), alias),
    'derived_table': seq(drop('LEFT_PAREN'), 'node_sql_query', drop('RIGHT_PAREN')),
    'asterisk': keep('ASTERISK'),
    'new_name': name,
    'table_name': name,
    'db_name': name,
    'column_name': choice(name, 'ASTERISK'),
    'id_IDENTIFICATOR': choice(seq('DIGIT', 'IDENTIFICATOR'), 'IDENTIFICATOR'),
    'table_hint': seq(drop('WITH_KEYWORD'), drop('LEFT_PAREN'), list_of('table_hint_keyword'), drop('RIGHT_PAREN')),
    'table_hint_keyword': choice(seq("'INDEX'", 'node_number', many('node_number')), keep(*TABLE_HINT)),

    # Conditions
    'between_expression_whis_paren': seq(root('LEFT_PAREN'), between_tail, 'RIGHT_PAREN'),
    'between_expression': between_tail,
    'between_logical_expression': seq('expression', opt(seq(root(*LOGICAL_OPERATOR), 'expression'))),
    'search_condition': choice('func_comparison', seq(root('LEFT_PAREN'), 'func_comparison', 'RIGHT_PAREN')),
    'logical_expression': seq('logical_factor', many(seq(root(*LOGICAL_OPERATOR), 'logical_factor'))),
    'logical_factor': choice(
        Row(CONDITION_FORMS[0], 'between_expression_whis_paren'),
        Row(CONDITION_FORMS[1], 'between_expression'),
        Row(CONDITION_FORMS[2], seq(opt(root('NOT_KEYWORD')), 'node_search_condition')),
        Row(seq('LEFT_PAREN', 'logical_expression'),
            seq(root('LEFT_PAREN'), 'logical_expression', opt('RIGHT_PAREN'),
                opt(seq(root(*COMPARISON),
                        choice(seq('NOT_KEYWORD', 'NULL_KEYWORD'), 'func_parameter', 'node_sql_query'),
                        opt('RIGHT_PAREN'))))),
        seq(opt('LEFT_PAREN'), opt(root('NOT_KEYWORD')), 'node_search_condition', opt('RIGHT_PAREN')),
        'expression'),
    'func_comparison': seq('func_parameter', opt(Row(seq('NOT_KEYWORD', keep(*COMPARISON)), 'NOT_KEYWORD')),
                           root(*COMPARISON), choice('func_parameter', 'node_sql_query')),
    'func_parameter': choice(Row(seq('LEFT_PAREN', parameter_start, 'COMMA'),
                                 seq('LEFT_PAREN', parameter_start, many(seq(drop('COMMA'), 'expression')),
                                     'RIGHT_PAREN')),
                             parameter_start),
    'variable': choice(seq('node_column_specification', 'LEFT_PAREN', 'PLUS', 'RIGHT_PAREN'),
                       'node_column_specification'),
    # A comparison without its right side fails the first guess, which is asked only where another form could follow.
    'variety_select': choice(
        before(NAME_START + ['ASTERISK', 'LEFT_COL_PAREN', 'LEFT_PAREN'],
               choice(Row(seq('expression', strict_many(COMPARISON, comparison_tail)), compared),
                      'node_column_specification', 'node_sql_sub_query'),
               compared),
        keep("'IDENTIFYCOL'", "'ROWGUIDCOL'")),

    # Arithmetic
    'expression': seq(choice(root('NOT_KEYWORD'), before(SIGN, signed), nothing), 'term',
                      many(seq(root(*SIGN), 'term'))),
    'term': seq('factor', many(seq(root('ASTERISK', 'DIVIDE', 'MOD1', 'MOD', 'MOD_KEYWORD', 'AMPERSAND'), 'factor'))),
    'factor': seq('factor2', many(seq('VERTBAR', 'VERTBAR', 'factor2'))),
    'factor2': choice(
        'all_node_function',
        Row(parenthesised_condition, seq(root('LEFT_PAREN'), 'logical_expression', 'RIGHT_PAREN')),
        seq(drop('LEFT_PAREN'), 'expression', drop('RIGHT_PAREN')),
        'node_sql_literal',
        'variable',
        'expression_list',
        'node_table_specification',
        Row(seq('LEFT_PAREN', 'SELECT_KEYWORD'), 'sql_sub_query'),
        'node_number',
        'node_column_specification'),
    'expression_list': seq('LEFT_PAREN', list_of('expression'), 'RIGHT_PAREN'),
    'sql_literal': choice('node_number', 'node_date_literal', 'node_quoted_string', 'NULL_KEYWORD'),
    'quoted_string': keep('QUOTE_ATTRITION', 'MY_QUOTE_ATTRITION'),
    'number': seq(opt(keep(*SIGN)),
                  choice('exp_number', seq('DOT', 'DIGIT'), seq('DIGIT', opt(seq('DOT', 'DIGIT'))),
                         keep('NOT_KEYWORD', 'NULL_KEYWORD', 'TRUE_KEYWORD', 'FALSE_KEYWORD'))),
    'exp_number': seq('DIGIT', opt(seq('DOT', 'DIGIT')), 'id_IDENTIFICATOR', many(keep(*SIGN)), 'DIGIT'),
    'maximum': keep('ALL_KEYWORD', 'MAX_KEYWORD'),
    'd_date_literal': seq("'#'",
                          choice(seq('number', 'DIVIDE', 'number', 'DIVIDE', 'number', opt('time')),
                                 seq('id_IDENTIFICATOR', 'number', opt('COMMA'), 'number')),
                          "'#'"),
    'time': seq('number', "':'", 'number'),

    # Functions
    'all_node_function': seq('node_function'),
    'node_function': choice('function_node', 'user_function_node', 'convert_function_node', 'case_function_node'),
    'function_': choice(seq('exist_func', opt('node_func_param')), seq('function', 'node_func_param')),
    'function': choice(keep(*OTHER_FUNCTION), keep(*NUMBER_FUNCTION), keep(*STRING_FUNCTION),
                       seq(opt(drop('LEFT_BRACE')), opt("'fn'"), keep(*DATETIME_FUNCTION)),
                       keep(*CONFIGURATION_FUNCTION)),
    'user_func_name': seq('id_IDENTIFICATOR', 'node_func_param'),
    'convert_function': seq(keep('CAST', "'CONVERT'"), 'node_convert_func_param'),
    'case_function': seq('IIF', 'node_case_param'),
    'function_param': seq(
        root('LEFT_PAREN'),
        opt(choice(not_before(PARAMETER_WORDS,
                              choice(Row(seq('logical_factor', keep(*LOGICAL_OPERATOR)), 'logical_expression'))),
                   Row(seq('ASTERISK', 'RIGHT_PAREN'), 'ASTERISK'),
                   'variety_select')),
        many(choice(seq(drop('COMMA'), 'logical_expression'), 'variety_select')),
        drop('RIGHT_PAREN')),
    'convert_func_param': choice(
        Row(seq('LEFT_PAREN', 'node_datatype'),
            seq(drop('LEFT_PAREN'), 'node_datatype', drop('COMMA'), 'expression',
                opt(seq(drop('COMMA'), 'node_style')), opt(drop('RIGHT_PAREN')))),
        seq(drop('LEFT_PAREN'), 'expression', imaginary_root('AS', drop('LITERAL_AS')), 'node_datatype',
            opt(drop('RIGHT_PAREN')))),
    'case_param': seq(drop('LEFT_PAREN'), 'select_list', many(seq('COMMA', 'select_list')), drop('RIGHT_PAREN')),
    'exist_func': seq('EXISTS', 'node_exist_func_param'),
    'data_type_all': seq(keep(*DATA_TYPE),
                         opt(seq(drop('LEFT_PAREN'), choice('node_maximum', list_of('node_number')),
                                 drop('RIGHT_PAREN')))),
}

# Rules that put the nodes of another rule under one imaginary node.
NODES = {
    'node_sql_query': ('SELECT_QUERY', 'sql_query'),
    'node_union': ('UNION', 'union_'),
    'node_predicate': ('PREDICATE', 'predicate'),
    'node_select_list': ('SELECT_LIST', 'select_list_'),
    'node_sql_sub_query': ('SELECT_QUERY', 'sql_sub_query'),
    'node_from_list': ('FROM_DEF_', 'from_list_'),
    'node_joined_table_': ('JOIN_DEF', 'big_joined_table'),
    'node_join_prefix': ('JOIN_PREFIX', 'join_prefix'),
    'node_join_postfix_': ('JOIN_POSTFIX', 'node_big_postfix'),
    'node_join_type': ('JOIN_TYPE', 'join_type'),
    'node_where_condition': ('WHERE_CONDITION', 'where_condition'),
    'node_group_by': ('GROUP_BY', 'group_by'),
    'node_order_by': ('ORDER_BY', 'order_by'),
    'node_having': ('HAVING', 'having'),
    'node_compute': ('COMPUTE', 'compute'),
    'node_by': ('BY', 'by'),
    'node_for': ('FOR', 'for_'),
    'node_option': ('OPTION', 'option'),
    'node_table_specification': ('TABLE_SPECIFICATION', 'table_specification'),
    'node_column_specification': ('COLUMN_SPECIFICATION', 'column_specification_pre'),
    'node_d_t': ('ALIAS', 'd_t'),
    'node_t_n': ('ALIAS', 't_n'),
    'node_sq_alias': ('ALIAS', 'sq_alias'),
    'node_db_name': ('QUERY_NAME', 'db_name'),
    'node_table_name': ('TABLE_NAME', 'table_name'),
    'node_column_name': ('COLUMN_NAME', 'column_name'),
    'node_table_hint': ('TABLE_HINT', 'table_hint'),
    'node_new_name': ('NEW_NAME', 'new_name'),
    'node_asterisk': ('ASTERISK_', 'asterisk'),
    'node_search_condition': ('SEARCH_CONDITION', 'search_condition'),
    'node_sql_literal': ('SQL_LITERAL', 'sql_literal'),
    'node_quoted_string': ('SQL_STRING', 'quoted_string'),
    'node_number': ('NUMBER_LITERAL', 'number'),
    'node_maximum': ('NUMBER_LITERAL', 'maximum'),
    'node_date_literal': ('DATE', 'd_date_literal'),
    'function_node': ('FUNCTION', 'function_'),
    'user_function_node': ('USER_FUNCTION', 'user_func_name'),
    'convert_function_node': ('FUNCTION', 'convert_function'),
    'case_function_node': ('FUNCTION', 'case_function'),
    'node_func_param': ('FUNC_PARAM', 'function_param'),
    'node_convert_func_param': ('FUNC_PARAM', 'convert_func_param'),
    'node_case_param': ('FUNC_PARAM', 'case_param'),
    'node_exist_func_param': ('FUNC_PARAM', 'all_sql_query'),
    'node_style': ('STYLE', 'number'),
    'node_datatype': ('DATATYPE', 'data_type_all'),
}


# ------------------------------------------------------------------------------------------------------------ entry

def sql_root(parser):
    if parser.types[0] != 'SELECT_KEYWORD':
        return error_entry(parser, 'SELECT_QUERY')
    return parser.rule('all_sql_query', 0)


DIALECT = Dialect(next_token, RULES, NODES, sql_root)


if __name__ == '__main__':
    with_deep_stack(DIALECT.serve)
