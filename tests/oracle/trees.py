"""Trees of the tests are nested calls of these and of a dialect's own; a text in them is a finished piece of sexpr."""


def node(label, *children):
    return '(%s %s)' % (label, ' '.join(children)) if children else label


def lit(text):
    return '\'%s\':"%s"' % (text, text)


def token(name, text):
    return '%s:"%s"' % (name, text)


def digit(text):
    return token('DIGIT', text)


def bare_num(*parts):
    marks = {'.': DOT, '-': MINUS, '+': PLUS}
    return node('NUMBER_LITERAL', *(marks.get(part) or (part if ':"' in part else digit(part)) for part in parts))


def num(*parts):
    return node('SQL_LITERAL', bare_num(*parts))


def from_(*sources):
    return node('FROM_DEF_', *sources)


def nil(*parts):
    return node('nil', *parts, 'EOF')


def op(name, text, *operands):
    return node(token(name, text), *operands)


def eq(left, right):
    return op('EQ', '=', left, right)


def cond(*parts):
    return node('SEARCH_CONDITION', *parts)


def params(*parts):
    return node('FUNC_PARAM', *parts)


STAR = token('ASTERISK', '*')
DOT = token('DOT', '.')
PLUS = token('PLUS', '+')
MINUS = token('MINUS', '-')
COMMA = token('COMMA', ',')
OPEN = token('LEFT_PAREN', '(')
CLOSE = token('RIGHT_PAREN', ')')
