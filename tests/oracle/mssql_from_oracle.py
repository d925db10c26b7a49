#!/usr/bin/env python3
"""A plain second reading of the grammar of MS SQL source lists, to check the generated recognizers against.

As a program: newline-delimited {"id", "sql"} in, {"id", "tree", "status", "tokens"} out.
"""

import re

from engine import (CAPITALS, Dialect, Token, choice, drop, enclosed, keep, many, operator_token, opt, quoted, root,
                    seq, some, with_deep_stack, words)


# ---------------------------------------------------------------------------------------------------- vocabulary

LITERAL_WORDS = words("LOOP HASH MERGE REMOTE")

KEYWORD_TOKENS = words("""
    JOIN_KEYWORD_ INNER_KEYWORD_ LEFT_KEYWORD_ RIGHT_KEYWORD_ FULL_KEYWORD_ OUTER_KEYWORD_ CROSS_KEYWORD_ ON_KEYWORD_
    LITERAL_AS_ WITH_KEYWORD_ AND_KEYWORD_
""")

# Two characters before one: the first that matches is the token.
OPERATORS = [
    ('!=', 'NOT_EQ_'), ('<>', 'NOT_EQ_'), ('<=', 'LE_'), ('>=', 'GE_'), ('*=', 'LOJ_'), ('=*', 'GOJ_'),
    ('##', "'##'"), ('#', "'#'"), ('\r', r"'\r'"), ('\n', r"'\n'"), ('(', 'LEFT_PAREN_'), (')', 'RIGHT_PAREN_'),
    ('[', 'LEFT_COL_PAREN_'), (']', 'RIGHT_COL_PAREN_'), ('"', 'MY_QUOTE'), ('+', 'PLUS_'), ('-', 'MINUS_'),
    ('&', 'AMPERSAND_'), ('/', 'DIVIDE_'), ('.', 'DOT_'), ('*', 'ASTERISK_'), (',', 'COMMA_'), ('|', 'VERTBAR_'),
    ('=', 'EQ_'), ('<', 'L_T_'), ('>', 'GT_'),
]


def keyword_text(token):
    return 'AS' if token == 'LITERAL_AS_' else token.replace('_KEYWORD_', '')


KEYWORDS = {keyword_text(token): token for token in KEYWORD_TOKENS}
LITERALS = dict(zip(LITERAL_WORDS, quoted(LITERAL_WORDS)))

WORD = re.compile('[A-Z_a-z][0-9A-Z_a-z]*')
DIGITS = re.compile('[0-9]+')
NUMBER = re.compile(r'[0-9]+(?:\.[0-9]*)?|\.[0-9]+')
EXPONENT = re.compile('[Ee][-+]?([0-9]*)')


# --------------------------------------------------------------------------------------------------------- lexer

def next_token(units, at):
    """The token at a position, or None for a lost character, and the position behind."""
    if (match := WORD.match(units, at)):
        word = match.group()
        return Token(LITERALS.get(word) or KEYWORDS.get(word.translate(CAPITALS), 'ID_'), word), match.end()
    if (match := NUMBER.match(units, at)):
        return number_token(units, at, match.end())
    # An exclamation mark commits to the operator.
    if units.startswith('!', at) and not units.startswith('!=', at):
        return None, at + 2
    return operator_token(OPERATORS, units, at)


def number_token(units, at, end):
    """The letter of an exponent commits: one without digits loses the number and one character more."""
    if (exponent := EXPONENT.match(units, end)):
        end = exponent.end()
        if not exponent.group(1):
            return None, end + 1
    text = units[at:end]
    return Token('INT_' if DIGITS.fullmatch(text) else 'FLOAT_', text), end


# ------------------------------------------------------------------------------------------------------------ rules

COMPARISON = words("EQ_ L_T_ GT_ LE_ GE_ NOT_EQ_ LOJ_ GOJ_")

opening = opt(drop('LEFT_PAREN_'))
closing = opt(drop('RIGHT_PAREN_'))
line_end = seq(drop(r"'\r'"), drop(r"'\n'"))
name = choice('quoted_identifier', 'ID_')

RULES = {
    'from_list': seq('node_joined_table'),
    'nested_table': seq('joined_table', opt('nestedJoin')),
    'joined_table': seq('node_join_prefix', root('JOIN_KEYWORD_'), 'node_join_postfix'),
    'node_test_prefix': seq(opening, 'join_prefix', closing),
    'join_prefix': seq(many(choice(seq('LEFT_PAREN_', 'node_nestedJoin', 'RIGHT_PAREN_'),
                                   seq(line_end, 'node_nestedJoin'),
                                   'join_type',
                                   seq(opt(line_end), 'node_t_n'),
                                   seq(opt(line_end), 'node_table_specification', opt(line_end)))),
                       opt('join_type')),
    'join_type': choice(seq(choice('INNER_KEYWORD_',
                                   seq(keep('LEFT_KEYWORD_', 'RIGHT_KEYWORD_', 'FULL_KEYWORD_'),
                                       opt('OUTER_KEYWORD_'))),
                            opt(keep(*quoted(LITERAL_WORDS)))),
                        'CROSS_KEYWORD_'),
    'join_postfix_': seq(opt('old_big_postfix'), opt('join_postfix'), opt('test')),
    'join_postfix': seq('postfix_table', opt('node_joined_table')),
    'test': seq(opt('node_nestedJoin'), opt(line_end), opt(seq(root('ON_KEYWORD_'), 'node_search_condition')),
                many('n_and')),
    'and_condition': seq(opt(drop('AND_KEYWORD_')), 'node_search_condition'),
    'old_big_postfix': seq(opt('node_joined_table'), 'postfix_table'),
    'postfix_table': some(choice(seq(opt('LEFT_PAREN_'), 'node_nestedJoin', opt('RIGHT_PAREN_')),
                                 seq(opt(line_end), 'node_nestedJoin'),
                                 seq(opt(line_end), 'node_t_n'),
                                 seq(opt(line_end), 'node_table_specification'))),
    'nestedJoin': seq('node_joined_table'),
    't_n': seq('node_table_specification', opt(seq('LITERAL_AS_', 'node_new_name'))),
    'new_name': seq(opt(drop('LEFT_COL_PAREN_')), opt(keep("'#'", "'##'")), choice('ID_', 'quoted_identifier'),
                    opt(drop('RIGHT_COL_PAREN_'))),
    'table_specification': choice(seq('node_db_name', drop('DOT_'), 'node_table_name'), 'node_table_name'),
    'column_specification': choice(
        seq('node_db_name', drop('DOT_'), 'node_table_name', drop('DOT_'), 'node_column_name'),
        seq('node_table_name', drop('DOT_'), 'node_column_name'),
        'node_column_name'),
    'column_name': name,
    'table_name': name,
    'db_name': keep('ID_'),
    'quoted_identifier': choice(enclosed('LEFT_COL_PAREN_', 'RIGHT_COL_PAREN_'), enclosed('MY_QUOTE', 'MY_QUOTE')),
    'search_condition': seq(opening, 'func_comparison', closing, opt(line_end)),
    'func_comparison': seq('func_parameter', root(*COMPARISON), 'func_parameter'),
    'func_parameter': seq(opt(line_end), 'expression'),
    'expression': seq('term', many(seq(root('PLUS_', 'MINUS_'), 'term'))),
    'term': seq('factor', many(seq(root('ASTERISK_', 'DIVIDE_'), 'factor'))),
    'factor': seq('factor2', many(seq('VERTBAR_', 'VERTBAR_', 'factor2'))),
    'factor2': choice('node_number', 'node_column_specification'),
    'number': keep('INT_', 'FLOAT_'),
}

# Rules that put the nodes of another rule under one imaginary node.
NODES = {
    'node_from_list': ('FROM_DEF_', 'from_list'),
    'node_joined_table': ('JOIN_DEF_', 'nested_table'),
    'node_join_prefix': ('JOIN_PREFIX_', 'node_test_prefix'),
    'node_join_postfix': ('JOIN_POSTFIX_', 'join_postfix_'),
    'n_and': ('AND', 'and_condition'),
    'node_nestedJoin': ('NESTED_JOIN_', 'nestedJoin'),
    'node_t_n': ('ALIAS_', 't_n'),
    'node_new_name': ('NEW_NAME_', 'new_name'),
    'node_table_specification': ('TABLE_SPECIFICATION_', 'table_specification'),
    'node_column_specification': ('COLUMN_SPECIFICATION_', 'column_specification'),
    'node_column_name': ('COLUMN_NAME_', 'column_name'),
    'node_db_name': ('DB_NAME_', 'db_name'),
    'node_table_name': ('TABLE_NAME_', 'table_name'),
    'node_search_condition': ('SEARCH_CONDITION_', 'search_condition'),
    'node_number': ('NUMBER_LITERAL_', 'number'),
}


DIALECT = Dialect(next_token, RULES, NODES, lambda parser: parser.rule('node_from_list', 0))


if __name__ == '__main__':
    with_deep_stack(DIALECT.serve)
