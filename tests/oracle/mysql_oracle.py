#!/usr/bin/env python3
"""A plain second reading of the MySQL dialect, to check the generated recognizers against.

As a program: newline-delimited {"id", "sql"} in, {"id", "tree", "status", "tokens"} out.
"""

import re

from engine import (CAPITALS, ROOT, Dialect, Row, Token, before, choice, committed_token, drop, error_entry,
                    imaginary_root, keep, keep_other_than, list_of, many, not_before, nothing, operator_token, opt,
                    quoted, root, seq, with_deep_stack, words)


# ---------------------------------------------------------------------------------------------------- vocabulary

SYSTEM_VARIABLES = words("""
    @@CONNECTION @@DATEFIRST @@DBTS @@LANGID @@LANGUAGE @@LOCK_TIMEOUT @@MAX_CONNECTIONS @@MAX_PRECISION @@NESTLEVEL
    @@OPTIONS @@REMSERVER @@SERVERNAME @@SERVICENAME @@SPID @@TEXTSIZE @@VERSION
""")

# Matched case-sensitively, before the keywords; a token's name is its text in single quotes.
LITERAL_WORDS = words("""
    LOOP HASH MERGE REMOTE CONVERT mi yy wk mm fn BROWSE XML RAW AUTO EXPLICIT XMLDATA ELEMENTS FAST FORCE MAXDOP
    ROBUST KEEP KEEPFIXED PLAN WITH IDENTIFYCOL ROWGUIDCOL INTO INDEX FASTFIRSTROW HOLDLOCK NOLOCK PAGLOCK
    READCOMMITTED READPAST READUNCOMMITTED REPEATABLEREAD ROWLOCK SERIALIZABLE TABLOCK TABLOCKX UPDLOCK XLOCK
""")

# A word of this list and a blank commit the lexer to the whole literal.
LITERALS_WITH_BLANK = {'EXPAND': 'EXPAND VIEWS', 'BYNATY': 'BYNATY base64'}

KEYWORD_TOKENS = words("""
    SELECT_KEYWORD TOP_KEYWORD ALL_KEYWORD DISTINCT_KEYWORD PERCENT_KEYWORD WITHTIES_KEYWORD FROM_KEYWORD DISTINCTROW
    LIMIT_KEYWORD INNER_KEYWORD JOIN_KEYWORD LEFT_KEYWORD RIGHT_KEYWORD FULL_KEYWORD OUTER_KEYWORD CROSS_KEYWORD
    STRAIGHT_KEYWORD NATURAL_KEYWORD WITH_KEYWORD EXISTS ON_KEYWORD NULL_KEYWORD WHERE_KEYWORD HAVING_KEYWORD
    GROUP_KEYWORD ORDER_KEYWORD BY_KEYWORD UNION_KEYWORD CUBE_KEYWORD ROLLUP_KEYWORD ASC_KEYWORD DESC_KEYWORD
    COMPUTE_KEYWORD FOR_KEYWORD OPTION_KEYWORD AND_KEYWORD OR_KEYWORD BETWEEN_KEYWORD CONVERT_KEYWORD IN_KEYWORD
    LITERAL_AS NOT
""")

# The first letter behind NOT and one blank commits the lexer to the whole keyword.
NEGATED_KEYWORDS = {'E': ('NOT EXISTS', 'NOT_EXISTS'), 'I': ('NOT IN', 'NOT_IN_KEYWORD'),
                    'N': ('NOT NULL', 'NOT_NULL_KEYWORD')}

NUMBER_FUNCTION = words("""
    ABS ACOS ASIN ATAN2 ATAN CEILING CEIL COS COT CRC32 DEGREES EXP FLOOR LN LOG10 LOG2 LOG MOD PI POW POWER RADIANS
    RAND ROUND SIGN SIN SQRT TAN TRUNCATE
""")

DATETIME_FUNCTION = words("""
    DATE ADDDATE ADDTIME CONVERTTZ CURDATE CURRENTDATE CURRENTTIME CURRENTTIMESTAMP CURTIME DATEADD DATEFORMAT DATESUB
    DATEDIFF DAY DAYNAME DAYOFMONTH DAYOFWEEK DAYOFYEAR EXTRACT FROMDAYS FROMUNIXTIME GETFORMAT HOUR LASTDAY LOCALTIME
    LOCALTIMESTAMP MAKEDATE MAKETME MICROSECOND MINUTE MONTH MONTHNAME NOW PERIODADD PEDIODDIFF QUARTER SECTOTIME
    SECOND STRTODATE SUBDATE SUBTIME SYSDATE TIMEFORMAT TIMETOSEC TIME TIMEDIFF TIMESTAMP TIMESTAMPADD TIMESTAMPDIFF
    TODAYS UNIXTIMESTAMP UTCDATE UTCTIME UTCTIMESTAMP WEEK WEEKDAY WEEKOFDATE YEAR YEARWEEK
""")

STRING_FUNCTION = words("""
    LEFT_KEYWORD RIGHT_KEYWORD ASCII BIN BITLENGTH CHARLENGTH CHAR CHARACTERLENGTH CONCATWS CONCAT CONV ELT EXPORTSET
    FIELD FINDINSET FORMAT HEX INSERT INSTR ISNULL IS_KEYWORD LCASE LENGTH LIKE_KEYWORD LOADFILE LOCATE LOWER LPAD
    LTRIM MAKESET MID NOTLIKE NOTREGEXP OCT OCTETLENGTH ORD POSITION_FUNCTION QUOTE REGEXP REPEAT REPLACE REVERSE
    RLIKE RPAD RTRIM SOUNDEX SPACE STRCMP SUBSTRINGINDEX SUBSTRING SUBSTR TRIM UCASE UNHEX UPPER
""")

OTHER_FUNCTION = words("AESDECRYPT IFNULL AVG COUNT MAX MIN SUM")

CONFIGURATION_FUNCTION = quoted(SYSTEM_VARIABLES)

DATA_TYPE = words("""
    DATETIME VARCHAR CHAR INT NUMERIC FLOAT NCHAR MONEY DECIMAL SMALLMONEY BIGINT BIT REAL SMALLDATETIME NVARCHAR
    TINYINT NTEXT TIMESHTAMP INTEGER
""")

KEYWORD_TOKENS += (NUMBER_FUNCTION + DATETIME_FUNCTION + STRING_FUNCTION[2:] + OTHER_FUNCTION +
                   [name for name in DATA_TYPE if name != 'CHAR'] + words("CASE WHEN THEN ELSE END CAST"))

# Texts of tokens whose names are run together.
JOINED_WORDS = words("""
    CONVERT_TZ CURRENT_DATE CURRENT_TIME CURRENT_TIMESTAMP DATE_ADD DATE_FORMAT DATE_SUB FROM_DAYS FROM_UNIXTIME
    GET_FORMAT LAST_DAY PERIOD_ADD PEDIOD_DIFF SEC_TO_TIME STR_TO_DATE TIME_FORMAT TIME_TO_SEC TO_DAYS UNIX_TIMESTAMP
    UTC_DATE UTC_TIME UTC_TIMESTAMP BIT_LENGTH CHAR_LENGTH CHARACTER_LENGTH CONCAT_WS EXPORT_SET FIND_IN_SET LOAD_FILE
    MAKE_SET NOT_LIKE NOT_REGEXP OCTET_LENGTH SUBSTRING_INDEX AES_DECRYPT
""")

SPECIAL_TEXTS = {'LITERAL_AS': 'AS', **{text.replace('_', ''): text for text in JOINED_WORDS}}

# Two characters before one: the first that matches is the token.
OPERATORS = [
    ('<>', 'NOT_EQ'), ('<=', 'LE'), ('>=', 'GE'), ('*=', 'LOJ'), ('=*', 'GOJ'), ('&&', 'AND_KEYWORD2'),
    ('||', 'OR_KEYWORD2'), ("'", "'''"), ('@', "'@'"), ('[', 'LEFT_COL_PAREN'), (']', 'RIGHT_COL_PAREN'),
    ('"', 'MY_QUOTE'), ('`', 'MY_ONE_QUOTE'), ('{', 'LEFT_BRACE'), ('}', 'RIGHT_BRACE'), ('(', 'LEFT_PAREN'),
    (')', 'RIGHT_PAREN'), ('+', 'PLUS'), ('-', 'MINUS'), ('&', 'AMPERSAND'), ('/', 'DIVIDE'), ('.', 'DOT'),
    ('*', 'ASTERISK'), (',', 'COMMA'), ('|', 'VERTBAR'), ('%', 'MOD1'), ('=', 'EQ'), ('<', 'L_T'), ('>', 'GT'),
]


def keyword_text(token):
    return SPECIAL_TEXTS.get(token) or token.replace('_KEYWORD', '').replace('_FUNCTION', '')


KEYWORDS = {keyword_text(token): token for token in KEYWORD_TOKENS}
LITERALS = dict(zip(LITERAL_WORDS, quoted(LITERAL_WORDS)))

WORD = re.compile('[A-Z_a-z][0-9A-Z_a-z]*')
DIGITS = re.compile('[0-9]+')


# --------------------------------------------------------------------------------------------------------- lexer

def next_token(units, at):
    """The token at a position, or None for lost characters, which every white space is, and the position behind."""
    if units.startswith('@@', at):
        return system_variable(units, at)
    if (match := WORD.match(units, at)):
        return word_token(units, at, match.end())
    if (match := DIGITS.match(units, at)):
        return Token('DIGIT', match.group()), match.end()
    if units[at] == '!':
        return (Token('NOT_EQ', '!='), at + 2) if units.startswith('!=', at) else (None, at + 2)
    return operator_token(OPERATORS, units, at)


def system_variable(units, at):
    """Without a whole name the first of the two characters is lost."""
    for name, type_ in zip(SYSTEM_VARIABLES, CONFIGURATION_FUNCTION):
        if units.startswith(name, at):
            return Token(type_, name), at + len(name)
    return None, at + 1


def word_token(units, at, end):
    word = units[at:end]
    capitals = word.translate(CAPITALS)
    if word in LITERALS_WITH_BLANK and units.startswith(' ', end):
        return committed_token(LITERALS_WITH_BLANK[word], units, at)
    if capitals == 'NOT' and units.startswith(' ', end):
        return negated_token(units, at)
    if word in LITERALS:
        return Token(LITERALS[word], word), end
    return Token(KEYWORDS.get(capitals, 'IDENTIFICATOR'), word), end


def negated_token(units, at):
    """NOT and one blank: without a letter that goes on with a keyword the N alone is lost."""
    capitals = units[at:at + len('NOT EXISTS')].translate(CAPITALS)
    if capitals[4:5] not in NEGATED_KEYWORDS:
        return None, at + 1
    text, name = NEGATED_KEYWORDS[capitals[4]]
    token, length = committed_token(text, capitals, 0)
    return token and Token(name, units[at:at + length]), at + length


# --------------------------------------------------------------------------------------------------- sets of tokens

DATE_PART = quoted(words("mi yy wk mm"))

LOGICAL_OPERATOR = words("AND_KEYWORD OR_KEYWORD AND_KEYWORD2 OR_KEYWORD2")

COMPARISON = words("IN_KEYWORD NOT NOT_IN_KEYWORD IS_KEYWORD LIKE_KEYWORD EQ L_T GT NOT_EQ LE GE LOJ GOJ")

SIGN = words("PLUS MINUS")
NAME_START = words("IDENTIFICATOR MY_ONE_QUOTE")
ARM_START = words("WHEN THEN ELSE")
QUOTE = "'''"


# ----------------------------------------------------------------------------------- rules that a row can't express

def partner(parser, at):
    """The place of the parenthesis that closes the one there, what stands in quotes not counted."""
    depth = 0
    quote = None
    while (type_ := parser.types[at]) != 'EOF':
        if quote is None:
            depth += (type_ == 'LEFT_PAREN') - (type_ == 'RIGHT_PAREN')
            if depth == 0:
                return at
            quote = type_ if type_ in (QUOTE, 'MY_ONE_QUOTE') else None
        elif type_ == quote:
            quote = None
        at += 1
    return None


def union_part(parser, at):
    """A query in parentheses that the text begins with ends at its parenthesis."""
    if parser.types[0] == 'LEFT_PAREN' and partner(parser, 0) == at - 1:
        return None
    return parser.rule('node_union', at)


def chain_in_parentheses(parser, at):
    """An operand that is a chain of its own: nothing but closing parentheses is read from the one that closes it on."""
    end = partner(parser, at) if parser.types[at] == 'LEFT_PAREN' else None
    if end is None or (found := condition(parser, at + 1)) is None:
        return None
    at, steps = found
    while at <= end:
        if (found := more(parser, at)) is None:
            return None
        at = found[0]
        steps = steps + found[1]
    is_chain = any(kind == ROOT for kind, _ in steps)
    return (at, steps) if is_chain and set(parser.types[end:at]) == {'RIGHT_PAREN'} else None


def exponent_mark(parser, at):
    return seq('IDENTIFICATOR')(parser, at) if parser.tokens[at].text in ('e', 'E') else None


# ------------------------------------------------------------------------------------------------------------ rules

opening = opt(drop('LEFT_PAREN'))
closing = opt(drop('RIGHT_PAREN'))
name = choice('quoted_identifier', 'IDENTIFICATOR')
alias = seq(opt(drop('LITERAL_AS')), 'node_new_name')
direction = opt(keep('ASC_KEYWORD', 'DESC_KEYWORD'))
item = seq(opening, 'variety_select', closing)
source = choice('node_t_n', 'node_table_specification')
expressions = list_of('expression')
# A parenthesis stays where it belongs to BETWEEN.
operand = choice('between_expression', seq(opening, 'logical_factor'))
condition = seq(operand, closing)
more = seq(root(*LOGICAL_OPERATOR), choice('chain_in_parentheses', operand), closing)

RULES = {
    # Statement
    'all_sql_query': seq('node_sql_query'),
    'sql_query': seq(opening, drop('SELECT_KEYWORD'), opt('node_predicate'), 'node_select_list', opt('from_list'),
                     opt('node_where_condition'), opt('node_group_by'), opt('node_having'), opt('node_order_by'),
                     opt('node_limit'), opt('node_compute'), opt('node_for'), opt('node_option'), opt(union_part),
                     closing),
    'union_': seq(drop('UNION_KEYWORD'), opt('ALL_KEYWORD'), 'node_sql_query'),
    'predicate': seq(opt(keep('ALL_KEYWORD', 'DISTINCT_KEYWORD', 'DISTINCTROW')), opt('top_expression')),
    'top_expression': seq(root('TOP_KEYWORD'), opening, 'node_number', closing, opt('PERCENT_KEYWORD'),
                          opt('WITHTIES_KEYWORD')),
    'select_list_': list_of('select_list'),
    'select_list': choice('node_asterisk', 'node_fff', item),
    'fff': seq(item, alias),
    'variety_select': choice('derived_table',
                             seq('expression', many(seq(root(*COMPARISON), 'expression'))),
                             keep("'IDENTIFYCOL'", "'ROWGUIDCOL'")),
    'derived_table': seq(drop('LEFT_PAREN'), 'node_sql_query', drop('RIGHT_PAREN')),

    # FROM
    'from_list': seq(drop('FROM_KEYWORD'), 'node_from_list', many(drop('RIGHT_PAREN'))),
    'from_list_': list_of('all_table_source_'),
    # A source is left out where nothing that could start a table stands.
    'all_table_source_': choice('table_source_', 'node_t_n', 'node_table_specification', 'table_source',
                                before(['LEFT_PAREN'], choice('node_sq_alias', 'all_sql_query')),
                                not_before(NAME_START + ['LEFT_PAREN'], nothing)),
    'table_source_': seq(many(drop('LEFT_PAREN')), 'node_joined_table_', closing),
    'node_joined_tables': seq('joined_table', opt('nestedJoin')),
    'joined_table': seq(opening, 'joined_table_', closing),
    'joined_table_': seq('node_join_prefix', root('JOIN_KEYWORD'), 'node_join_postfix_'),
    'node_test_prefix': seq(opening, 'join_prefix', closing),
    'join_prefix': seq(many(choice(source, 'join_type')), opt('join_type')),
    'join_type': choice(keep('CROSS_KEYWORD', 'INNER_KEYWORD', 'STRAIGHT_KEYWORD'),
                        seq(opt('NATURAL_KEYWORD'), keep('LEFT_KEYWORD', 'RIGHT_KEYWORD'), opt('OUTER_KEYWORD'))),
    'join_postfix': seq(opt('old_big_postfix'), opt('join_postfix_'), opt('on_search_contition')),
    'old_big_postfix': seq(opt('node_joined_table_'), 'postfix_table'),
    'join_postfix_': seq('postfix_table', opt('node_joined_table_')),
    'postfix_table': many(choice(seq(opening, 'nestedJoin', closing), source)),
    'nestedJoin': seq('node_joined_table_'),
    'on_search_contition': seq(root('ON_KEYWORD'), opening, opening, 'node_search_condition', closing,
                               many(seq(root(*LOGICAL_OPERATOR), opening, 'node_search_condition', closing)),
                               closing),
    # A table, with hints or without, has been tried as a source before this.
    'table_source': seq('node_d_t', opt(list_of('select_list'))),
    'd_t': seq('derived_table', alias),
    't_n': seq('node_table_specification', alias),
    'sq_alias': seq('all_sql_query', alias),

    # Clauses
    'where_condition': seq(drop('WHERE_KEYWORD'), 'logical_expression'),
    'group_by': seq(drop('GROUP_KEYWORD'), drop('BY_KEYWORD'), opt('ALL_KEYWORD'), 'node_column_specification',
                    many(seq(drop('COMMA'), choice('node_column_specification', 'expression'))),
                    opt(seq('WITH_KEYWORD', keep('CUBE_KEYWORD', 'ROLLUP_KEYWORD')))),
    'having': seq(drop('HAVING_KEYWORD'), 'logical_expression'),
    'order_by': seq(drop('ORDER_KEYWORD'), drop('BY_KEYWORD'), list_of(seq('expression', direction))),
    'limit': seq(drop('LIMIT_KEYWORD'), 'expression', opt(seq(drop('COMMA'), 'expression'))),
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
                         seq(keep("'ROBUST'", "'KEEP'", "'KEEPFIXED'"), "'PLAN'"),
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
    'db_name': name,
    'table_name': name,
    'column_name': name,
    'new_name': name,
    'quoted_identifier': seq(drop('MY_ONE_QUOTE'), many(keep_other_than('MY_ONE_QUOTE')), drop('MY_ONE_QUOTE')),

    # Conditions
    'logical_expression': seq(condition, many(more)),
    'chain_in_parentheses': chain_in_parentheses,
    'logical_factor': choice('between_expression', seq(opt('NOT'), 'node_search_condition'),
                             seq('expression', closing)),
    'between_expression': seq('LEFT_PAREN', 'expression', opt('NOT'), root('BETWEEN_KEYWORD'),
                              'between_logical_expression', 'RIGHT_PAREN'),
    'between_logical_expression': seq('expression', opt(seq(root(*LOGICAL_OPERATOR), 'expression'))),
    'search_condition': seq(opening, 'func_comparison', closing),
    'func_comparison': seq('func_parameter', root(*COMPARISON), choice('func_parameter', 'node_sql_query')),
    'func_parameter': seq(opening, choice('expression', seq("'@'", 'IDENTIFICATOR')),
                          many(seq(drop('COMMA'), 'expression')), closing),

    # Arithmetic
    'expression': seq('term', many(seq(root(*SIGN), 'term'))),
    'term': seq('factor', many(seq(root('ASTERISK', 'DIVIDE', 'MOD1', 'AMPERSAND'), 'factor'))),
    'factor': seq('factor2', many(seq('VERTBAR', 'VERTBAR', 'factor2'))),
    # A name is a column; a number does not begin with a parenthesis here.
    'factor2': choice(not_before(['LEFT_PAREN'], 'node_sql_literal'), 'all_node_function',
                      seq(drop('LEFT_PAREN'), 'expression', drop('RIGHT_PAREN')),
                      'expression_list', 'variable', 'all_sql_query'),
    'variable': choice(seq('node_column_specification', 'LEFT_PAREN', 'PLUS', 'RIGHT_PAREN'),
                       'node_column_specification'),
    'expression_list': seq('LEFT_PAREN', expressions, 'RIGHT_PAREN'),

    # Literals
    'sql_literal': choice('node_number', 'node_date_literal', 'node_quoted_string'),
    'number': seq(opt(keep(*SIGN)),
                  choice('exp_number', seq('DOT', 'DIGIT'), seq(opening, 'DIGIT', opt(seq('DOT', 'DIGIT'))),
                         keep('NOT_NULL_KEYWORD', 'NULL_KEYWORD'))),
    'exp_number': seq('DIGIT', opt(seq('DOT', 'DIGIT')), exponent_mark, many(keep(*SIGN)), 'DIGIT'),
    'maximum': keep('ALL_KEYWORD', 'MAX'),
    'd_date_literal': seq(QUOTE,
                          choice(seq('number', 'DIVIDE', 'number', 'DIVIDE', 'number'),
                                 seq('IDENTIFICATOR', 'number', opt('COMMA'), 'number')),
                          QUOTE),
    'quoted_string': seq(drop(QUOTE), many(keep_other_than(QUOTE)), drop(QUOTE)),

    # Functions
    'all_node_function': choice('function_node', 'user_function_node', 'convert_function_node'),
    'function_': seq('function', opt('node_func_param'), opt(drop('RIGHT_BRACE'))),
    'function': seq(opening,
                    choice(seq('CASE', 'node_case_param'),
                           seq(keep(*OTHER_FUNCTION), 'node_group_func_param'),
                           keep(*NUMBER_FUNCTION, *STRING_FUNCTION, *CONFIGURATION_FUNCTION),
                           seq(opt(drop('LEFT_BRACE')), opt("'fn'"), keep(*DATETIME_FUNCTION)),
                           seq(keep('EXISTS', 'NOT_EXISTS'), 'node_exist_func_param')),
                    closing),
    'convert_function': seq(keep('CAST', "'CONVERT'"), 'node_convert_func_param'),
    'user_func_name': seq('quoted_identifier', 'node_func_param'),
    'function_param': seq(drop('LEFT_PAREN'),
                          opt(seq(choice('expression', 'node_date_part'),
                                  many(seq(opt(drop('COMMA')), 'expression')))),
                          closing),
    'date_part': keep(*DATE_PART),
    'any_group_func_param': choice('group_func_param', 'convert_func_param'),
    'group_func_param': seq(drop('LEFT_PAREN'), opt(keep('ALL_KEYWORD', 'DISTINCT_KEYWORD')),
                            choice('ASTERISK', expressions), closing),
    'convert_func_param': choice(
        seq(drop('LEFT_PAREN'), 'node_datatype', drop('COMMA'), 'expression', opt(seq(drop('COMMA'), 'node_style')),
            closing),
        seq(drop('LEFT_PAREN'), 'expression', imaginary_root('AS', drop('LITERAL_AS')), 'node_datatype', closing)),
    'data_type_all': seq(keep(*DATA_TYPE),
                         opt(seq(opening, choice('node_maximum', 'node_number'),
                                 many(seq(drop('COMMA'), 'node_number')), drop('RIGHT_PAREN')))),

    # CASE
    'case_param': seq(opt(choice(seq(drop('LEFT_PAREN'), 'expression', closing), 'expression')),
                      many('node_atrib_case_func'), 'END', closing),
    'case_atrib_function': seq(keep(*ARM_START), 'node_case_func_param'),
    'result_expression': choice(Row(seq('expression', keep(*ARM_START, 'END')), 'expression'), 'logical_expression'),
}

# Rules that put the nodes of another rule under one imaginary node.
NODES = {
    'node_sql_query': ('SELECT_QUERY_MY', 'sql_query'),
    'node_union': ('UNION', 'union_'),
    'node_predicate': ('PREDICATE', 'predicate'),
    'node_select_list': ('SELECT_LIST', 'select_list_'),
    'node_fff': ('ALIAS', 'fff'),
    'node_from_list': ('FROM_DEF_', 'from_list_'),
    'node_joined_table_': ('JOIN_DEF', 'node_joined_tables'),
    'node_join_prefix': ('JOIN_PREFIX', 'node_test_prefix'),
    'node_join_postfix_': ('JOIN_POSTFIX', 'join_postfix'),
    'node_d_t': ('ALIAS', 'd_t'),
    'node_t_n': ('ALIAS', 't_n'),
    'node_sq_alias': ('ALIAS', 'sq_alias'),
    'node_where_condition': ('WHERE_CONDITION', 'where_condition'),
    'node_group_by': ('GROUP_BY', 'group_by'),
    'node_having': ('HAVING', 'having'),
    'node_order_by': ('ORDER_BY', 'order_by'),
    'node_limit': ('LIMIT', 'limit'),
    'node_compute': ('COMPUTE', 'compute'),
    'node_by': ('BY', 'by'),
    'node_for': ('FOR', 'for_'),
    'node_option': ('OPTION', 'option'),
    'node_table_specification': ('TABLE_SPECIFICATION', 'table_specification'),
    'node_column_specification': ('COLUMN_SPECIFICATION', 'column_specification'),
    'node_db_name': ('DB_NAME', 'db_name'),
    'node_table_name': ('TABLE_NAME', 'table_name'),
    'node_column_name': ('COLUMN_NAME', 'column_name'),
    'node_asterisk': ('ASTERISK_', 'asterisk'),
    'node_new_name': ('NEW_NAME', 'new_name'),
    'node_search_condition': ('SEARCH_CONDITION', 'search_condition'),
    'node_sql_literal': ('SQL_LITERAL', 'sql_literal'),
    'node_number': ('NUMBER_LITERAL', 'number'),
    'node_maximum': ('NUMBER_LITERAL', 'maximum'),
    'node_date_literal': ('DATE', 'd_date_literal'),
    'node_quoted_string': ('SQL_STRING', 'quoted_string'),
    'function_node': ('FUNCTION_MY', 'function_'),
    'user_function_node': ('USER_FUNCTION', 'user_func_name'),
    'convert_function_node': ('FUNCTION_MY', 'convert_function'),
    'node_exist_func_param': ('FUNC_PARAM', 'all_sql_query'),
    'node_func_param': ('FUNC_PARAM', 'function_param'),
    'node_group_func_param': ('FUNC_PARAM', 'any_group_func_param'),
    'node_convert_func_param': ('FUNC_PARAM', 'convert_func_param'),
    'node_date_part': ('DATE_PART', 'date_part'),
    'node_style': ('STYLE', 'number'),
    'node_datatype': ('DATATYPE', 'data_type_all'),
    'node_case_param': ('FUNC_PARAM', 'case_param'),
    'node_atrib_case_func': ('FUNCTION_MY', 'case_atrib_function'),
    'node_case_func_param': ('FUNC_PARAM', 'result_expression'),
}


# ------------------------------------------------------------------------------------------------------------ entry

def sql_root(parser):
    """Of two opening parentheses before SELECT the second is lost, with a report."""
    for begin in (['SELECT_KEYWORD'], ['LEFT_PAREN', 'SELECT_KEYWORD'], ['LEFT_PAREN', 'LEFT_PAREN', 'SELECT_KEYWORD']):
        if parser.types[:len(begin)] == begin:
            parser.has_reported = len(begin) == 3
            return parser.rule('all_sql_query', max(0, len(begin) - 2))
    return error_entry(parser, 'SELECT_QUERY_MY')


DIALECT = Dialect(next_token, RULES, NODES, sql_root)


if __name__ == '__main__':
    with_deep_stack(DIALECT.serve)
