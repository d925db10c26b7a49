"""Trees of the tests are nested calls of these and of a dialect's own; a text in them is a finished piece of sexpr."""


def node(label, *children):
    return '(%s %s)' % (label, ' '.join(children)) if children else label


def lit(text):
    return '\'%s\':"%s"' % (text, text)
