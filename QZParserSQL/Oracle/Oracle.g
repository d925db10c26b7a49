// Oracle: the lexer and parser of stored queries.
//
// Two layers of words: a word in quotes is a token in the case shown and wins a tie, a keyword rule takes any case. The
// parser decides by one token and, where several alternatives remain, by guesses in the order written. A clause whose
// guess fails is no error: it trails at the root with all that follows it. Parentheses are seldom counted: an optional
// one is taken wherever it stands. Rules called node_x wrap the rule x in a node; a rule marked "guessed only" is never
// part of a tree.
grammar Oracle;

options {
    language = C;
    output = AST;
    ASTLabelType = pANTLR3_BASE_TREE;
    backtrack = true;
    memoize = true;
    k = 1;
}

tokens {
    // Nodes made by the grammar.
    ALIAS; AND; AS; ASTERISK_; BY; COLUMN_NAME; COLUMN_SPECIFICATION; COMMA_KEYWORD; COMPUTE; CONVERT_FUNCTION;
    DATATYPE; DATE_FUNCTION; DATE_PART; DB_NAME; FOR; FROM_DEF_; FUNCTION; FUNCTION_NAME; FUNCTION_SPECIFICATION;
    FUNC_PARAM; GROUP_BY; GROUP_FUNCTION; HAVING; IN_; ISNOT; JOIN_CONDITION; JOIN_DEF; JOIN_POSTFIX; JOIN_PREFIX;
    LITERALAS; NESTED_JOIN; NESTED_JOIN_POSTFIX; NESTED_JOIN_PREFIX; NESTED_JOIN_SERCH; NEW_NAME; NOT_CONDITION;
    NUMBER_LITERAL; NUMBER_literal; OPTION; ORDER_BY; PARAMETER; PARTITION_BY; PREDICATE; PROCEDURE; PROCNAME;
    SEARCH_CONDITION; SELECT_LIST; SELECT_QUERY_IN; SELECT_QUERY_OR; SQL_LITERAL; SQL_STRING; STYLE; TABLE_HINT;
    TABLE_NAME; TABLE_SPECIFICATION; UNION; USER_FUNCTION; WHERE_CONDITION; WHERE_JOIN;

    // Words and signs in one case.
    SIGN_HASHES = '##';
    SIGN_HASH = '#';
    SIGN_AT = '@';
    WORD_AT_CONNECTION = '@@CONNECTION';
    WORD_AT_DATEFIRST = '@@DATEFIRST';
    WORD_AT_DBTS = '@@DBTS';
    WORD_AT_LANGID = '@@LANGID';
    WORD_AT_LANGUAGE = '@@LANGUAGE';
    WORD_AT_LOCK_TIMEOUT = '@@LOCK_TIMEOUT';
    WORD_AT_MAX_CONNECTIONS = '@@MAX_CONNECTIONS';
    WORD_AT_MAX_PRECISION = '@@MAX_PRECISION';
    WORD_AT_NESTLEVEL = '@@NESTLEVEL';
    WORD_AT_OPTIONS = '@@OPTIONS';
    WORD_AT_REMSERVER = '@@REMSERVER';
    WORD_AT_SERVERNAME = '@@SERVERNAME';
    WORD_AT_SERVICENAME = '@@SERVICENAME';
    WORD_AT_SPID = '@@SPID';
    WORD_AT_TEXTSIZE = '@@TEXTSIZE';
    WORD_AT_VERSION = '@@VERSION';
    WORD_AUTO = 'AUTO';
    WORD_BROWSE = 'BROWSE';
    WORD_BYNATY_base64 = 'BYNATY base64';
    WORD_ELEMENTS = 'ELEMENTS';
    WORD_EXPAND_VIEWS = 'EXPAND VIEWS';
    WORD_EXPLICIT = 'EXPLICIT';
    WORD_FAST = 'FAST';
    WORD_FASTFIRSTROW = 'FASTFIRSTROW';
    WORD_FORCE = 'FORCE';
    WORD_HASH = 'HASH';
    WORD_HOLDLOCK = 'HOLDLOCK';
    WORD_IDENTIFYCOL = 'IDENTIFYCOL';
    WORD_INDEX = 'INDEX';
    WORD_INTO = 'INTO';
    WORD_KEEP = 'KEEP';
    WORD_KEEPFIXED = 'KEEPFIXED';
    WORD_MAXDOP = 'MAXDOP';
    WORD_MERGE = 'MERGE';
    WORD_NOLOCK = 'NOLOCK';
    WORD_PAGLOCK = 'PAGLOCK';
    WORD_PLAN = 'PLAN';
    WORD_READCOMMITTED = 'READCOMMITTED';
    WORD_READPAST = 'READPAST';
    WORD_READUNCOMMITTED = 'READUNCOMMITTED';
    WORD_REPEATABLEREAD = 'REPEATABLEREAD';
    WORD_ROBUST = 'ROBUST';
    WORD_ROWGUIDCOL = 'ROWGUIDCOL';
    WORD_ROWLOCK = 'ROWLOCK';
    WORD_SERIALIZABLE = 'SERIALIZABLE';
    WORD_SET_TEXTSIZE = 'SET TEXTSIZE';
    WORD_TABLOCK = 'TABLOCK';
    WORD_TABLOCKX = 'TABLOCKX';
    WORD_UPDLOCK = 'UPDLOCK';
    WORD_WITH = 'WITH';
    WORD_XLOCK = 'XLOCK';
    WORD_XML = 'XML';
    WORD_XMLDATA = 'XMLDATA';
    SIGN_QUOTE = '\'';
    WORD_dbms_random_value = 'dbms_random.value';
    WORD_fn = 'fn';
    WORD_mi = 'mi';
    WORD_mm = 'mm';
    WORD_wk = 'wk';
    WORD_yy = 'yy';
    WORD_yyyy = 'yyyy';
}

@parser::includes {
#include "QZParserSQL/Oracle/Predicates.h"
}

// ---------------------------------------------------------------- statement

// The entry rule. Whatever stands behind the query trails at the root, EOF last: SELECT a FROM t LIMIT 5
sql_root
    : all_sql_query .* EOF
    ;

all_sql_query
    : node_sql_query
    ;

node_sql_query
    : sql_query -> ^(SELECT_QUERY_OR sql_query)
    ;

node_sql_sub_query
    : sql_sub_query -> ^(SELECT_QUERY_OR sql_sub_query)
    ;

sql_sub_query
    : all_sql_query
    ;

node_union
    : union_ -> ^(UNION union_)
    ;

// UNION ALL SELECT b FROM u: the chain of unions nests to the right
union_
    : UNION_KEYWORD_! ALL_KEYWORD? node_sql_query
    ;

// A clause is entered only where its guess succeeds, else it trails with all that follows it. A parenthesis belongs to
// the query only directly before SELECT; of two, recovery leaves the second one out. (SELECT a FROM t)
sql_query
    : ((LEFT_PAREN LEFT_PAREN? SELECT_KEYWORD)=> LEFT_PAREN!)?
      SELECT_KEYWORD! node_predicate? node_select_list from_list? node_where_condition? node_group_by? node_having?
      node_order_by? node_compute? node_for? node_option? node_union? RIGHT_PAREN!?
    ;

node_predicate
    : predicate -> ^(PREDICATE predicate)
    ;

// DISTINCT TOP 5 PERCENT
predicate
    : (ALL_KEYWORD | DISTINCT_KEYWORD) top_expression?
    | top_expression
    ;

// TOP (5) PERCENT WITHTIES
top_expression
    : TOP_KEYWORD^ LEFT_PAREN!? node_number RIGHT_PAREN!? PERCENT_KEYWORD? WITHTIES_KEYWORD?
    ;

node_select_list
    : select_list_ -> ^(SELECT_LIST select_list_)
    ;

// a, b AS x, COUNT(*)
select_list_
    : select_list (COMMA! select_list)*
    ;

// One item; with a name first: a + 1 x, a AS x
select_list
    : node_asterisk
    | node_fff
    | variety_select
    | node_row_number
    | node_row_number_function
    ;

node_fff
    : fff -> ^(ALIAS fff)
    ;

fff
    : variety_select LITERAL_AS!? node_new_name
    ;

// ((SELECT a FROM t)), a + 1, a = 1
variety_select
    : derived_table
    | logical_factor
    | 'IDENTIFYCOL'
    | 'ROWGUIDCOL'
    ;

// A query takes the parentheses directly around it itself: these are the ones around those.
derived_table
    : LEFT_PAREN! node_sql_query RIGHT_PAREN!
    ;

// --------------------------------------------------------------- ROW_NUMBER

node_row_number
    : row_number -> ^(ALIAS row_number)
    ;

// ROW_NUMBER() OVER (ORDER BY a) AS rn
row_number
    : node_row_number_function LITERAL_AS!? node_new_name
    ;

node_row_number_function
    : function_row_number -> ^(FUNCTION function_row_number)
    ;

function_row_number
    : ROW_NUMBER LEFT_PAREN! RIGHT_PAREN! node_row_number_func_param
    ;

node_row_number_func_param
    : node_over_function -> ^(FUNC_PARAM node_over_function)
    ;

node_over_function
    : over_function -> ^(FUNCTION over_function)
    ;

// OVER (PARTITION BY a, b ORDER BY c)
over_function
    : OVER LEFT_PAREN! node_over_func_param RIGHT_PAREN!
    ;

node_over_func_param
    : over_function_param -> ^(FUNC_PARAM over_function_param)
    ;

node_over_function_param
    : over_function_param -> ^(FUNC_PARAM over_function_param)
    ;

over_function_param
    : node_partition_by? node_order_by
    ;

node_partition_by
    : partition_by -> ^(PARTITION_BY partition_by)
    ;

partition_by
    : PARTITION_KEYWORD! BY_KEYWORD! expression next_expression*
    ;

// --------------------------------------------------------------------- FROM

// FROM t, u x
from_list
    : FROM_KEYWORD! node_from_list
    ;

node_from_list
    : from_list_ -> ^(FROM_DEF_ from_list_)
    ;

// a, b, c is ^(COMMA ^(COMMA a b) c)
from_list_
    : all_table_source_ (COMMA^ all_table_source_)*
    ;

// A join first, then a name with or without an alias, then a derived table; before a token that starts none of them the
// source is empty.
all_table_source_
    : table_source_
    | node_t_n
    | node_table_specification
    | table_source?
    | column_specification
    | node_sq_alias
    | all_sql_query
    ;

// Opening parentheses are not counted: ((a INNER JOIN b ON x = y
table_source_
    : LEFT_PAREN!* node_joined_table_
    ;

node_joined_table_
    : joined_table_ ((nestedJoin)=> nestedJoin)? -> ^(JOIN_DEF joined_table_ nestedJoin?)
    ;

// a LEFT JOIN b ON x = y; a join chained on has an empty prefix: INNER JOIN c ON z = y
joined_table_
    : (node_join_prefix JOIN_KEYWORD node_join_postfix_)=> node_join_prefix JOIN_KEYWORD^ node_join_postfix_
    | JOIN_KEYWORD^ node_join_postfix_
    ;

node_join_prefix
    : node_test_prefix -> ^(JOIN_PREFIX node_test_prefix)
    ;

node_test_prefix
    : LEFT_PAREN!? join_prefix RIGHT_PAREN!?
    ;

// a x LEFT OUTER: the tables and join words before JOIN
join_prefix
    : ( join_type
      | node_t_n
      | node_table_specification
      | node_sq_alias
      | all_sql_query
      )*
      join_type?
    ;

// LEFT OUTER hash
join_type
    : (INNER_KEYWORD | (FULL_KEYWORD | LEFT_KEYWORD | RIGHT_KEYWORD) OUTER_KEYWORD?) join_hint?
    | CROSS_KEYWORD
    ;

// HASH and MERGE in capitals are other tokens: INNER hash JOIN
join_hint
    : HASH
    | LOOP
    | MERGE
    | REMOTE
    ;

// b ON x = y, where b may be a join itself: a INNER JOIN b INNER JOIN c ON y = z ON x = y
node_join_postfix_
    : ((old_big_postfix)=> old_big_postfix)?
      ((join_postfix_)=> join_postfix_)?
      ((on_search_contition)=> on_search_contition)?
      -> ^(JOIN_POSTFIX old_big_postfix? join_postfix_? on_search_contition?)
    ;

join_postfix_
    : postfix_table ((node_joined_table_)=> node_joined_table_)?
    ;

old_big_postfix
    : ((node_joined_table_)=> node_joined_table_)? big_postfix
    ;

all_old_big_postfix
    : old_big_postfix
    ;

big_postfix
    : postfix_table
    ;

// What JOIN joins: (c INNER JOIN d ON z = y), b x, b, (SELECT a FROM t) x
postfix_table
    : LEFT_PAREN!? nestedJoin RIGHT_PAREN!?
    | node_t_n
    | node_table_specification
    | node_sq_alias
    | all_sql_query
    ;

nestedJoin
    : node_joined_table_
    ;

// ON a.x = b.x AND a.y = b.y
on_search_contition
    : (ON_KEYWORD^ LEFT_PAREN!? logical_expression RIGHT_PAREN!?)?
    ;

// t WITH (with (NOLOCK)), ((SELECT a FROM t)) x
table_source
    : (node_t_n | node_table_specification)
      ('WITH' LEFT_PAREN? table_hint ((COMMA table_hint)=> COMMA! table_hint)* RIGHT_PAREN?)?
    | node_d_t ((select_list)=> select_list ((COMMA select_list)=> COMMA! select_list)*)?
    ;

node_d_t
    : d_t -> ^(ALIAS d_t)
    ;

d_t
    : derived_table LITERAL_AS!? node_new_name
    ;

node_t_n
    : t_n -> ^(ALIAS t_n)
    ;

// t x, t AS x; without a name the table is no ALIAS
t_n
    : node_table_specification LITERAL_AS!? node_new_name
    ;

node_sq_alias
    : sq_alias -> ^(ALIAS sq_alias)
    ;

// (SELECT a FROM t) x
sq_alias
    : all_sql_query LITERAL_AS!? node_new_name
    ;

// ------------------------------------------------------------------ clauses

node_where_condition
    : where_condition -> ^(WHERE_CONDITION where_condition)
    ;

// WHERE a = 1 AND NOT b = 2
where_condition
    : WHERE_KEYWORD! logical_expression
    ;

node_group_by
    : group_by -> ^(GROUP_BY group_by)
    ;

// GROUP BY a, TRUNC(b) With Cube: the first is a column, and WITH in capitals is another token
group_by
    : GROUP_KEYWORD! BY_KEYWORD! ALL_KEYWORD? node_column_specification
      (COMMA! (node_column_specification | expression))*
      (WITH_KEYWORD (CUBE_KEYWORD | ROLLUP_KEYWORD))?
    ;

node_having
    : having -> ^(HAVING having)
    ;

// HAVING COUNT(*) > 1
having
    : HAVING_KEYWORD! logical_expression
    ;

node_order_by
    : order_by -> ^(ORDER_BY order_by)
    ;

// ORDER BY a DESC, b
order_by
    : ORDER_KEYWORD! BY_KEYWORD! expression (ASC_KEYWORD | DESC_KEYWORD)?
      (COMMA! expression (ASC_KEYWORD | DESC_KEYWORD)?)*
    ;

node_compute
    : compute -> ^(COMPUTE compute)
    ;

// COMPUTE SUM(a), MAX(b) BY c
compute
    : COMPUTE_KEYWORD! node_function (COMMA! node_function)* node_by?
    ;

node_by
    : by -> ^(BY by)
    ;

by
    : BY_KEYWORD! node_column_specification (COMMA! node_column_specification)*
    ;

node_for
    : for_ -> ^(FOR for_)
    ;

// FOR XML AUTO.ELEMENTS: the separator is a dot
for_
    : FOR_KEYWORD!
      ( 'BROWSE'
      | 'XML' (RAW | 'AUTO' | 'EXPLICIT') (DOT 'XMLDATA')? (DOT 'ELEMENTS')? (DOT 'BYNATY base64')?
      )
    ;

node_option
    : option -> ^(OPTION option)
    ;

// OPTION FAST 10, KEEP PLAN: no parentheses
option
    : OPTION_KEYWORD! query_hint (COMMA! query_hint)*
    ;

query_hint
    : (ORDER_KEYWORD | 'HASH') GROUP_KEYWORD
    | (CONCAT | 'HASH' | 'MERGE') UNION_KEYWORD_
    | 'FAST' node_number
    | 'FORCE' ORDER_KEYWORD
    | 'MAXDOP' node_number
    | ('KEEP' | 'KEEPFIXED' | 'ROBUST') 'PLAN'
    | 'EXPAND VIEWS'
    ;

node_table_hint
    : table_hint -> ^(TABLE_HINT table_hint)
    ;

// with (NOLOCK, INDEX 1 2)
table_hint
    : WITH_KEYWORD! LEFT_PAREN! table_hint_keyword (COMMA! table_hint_keyword)* RIGHT_PAREN!
    ;

table_hint_keyword
    : 'INDEX' node_number node_number*
    | 'FASTFIRSTROW'
    | 'HOLDLOCK'
    | 'NOLOCK'
    | 'PAGLOCK'
    | 'READCOMMITTED'
    | 'READPAST'
    | 'READUNCOMMITTED'
    | 'REPEATABLEREAD'
    | 'ROWLOCK'
    | 'SERIALIZABLE'
    | 'TABLOCK'
    | 'TABLOCKX'
    | 'UPDLOCK'
    | 'XLOCK'
    ;

into_name
    : 'INTO'! node_new_name
    ;

// ----------------------------------------------------------- tables, columns

node_table_specification
    : table_specification -> ^(TABLE_SPECIFICATION table_specification)
    ;

// s.t
table_specification
    : (node_db_name DOT node_table_name)=> node_db_name DOT! node_table_name
    | node_table_name
    ;

node_column_specification
    : column_specification -> ^(COLUMN_SPECIFICATION column_specification)
    ;

// s.t.a, s.t *, t.a, t.*, a
column_specification
    : (node_db_name DOT node_table_name DOT node_column_name)=>
      node_db_name DOT! node_table_name DOT! node_column_name
    | (node_db_name DOT node_table_name ASTERISK (FROM_KEYWORD | COMMA))=>
      node_db_name DOT! node_table_name node_asterisk
    | (node_table_name DOT node_column_name)=> node_table_name DOT! node_column_name
    | node_column_name
    ;

node_db_name
    : db_name -> ^(DB_NAME db_name)
    ;

node_table_name
    : table_name -> ^(TABLE_NAME table_name)
    ;

node_column_name
    : column_name -> ^(COLUMN_NAME column_name)
    ;

node_func_name
    : func_name -> ^(FUNCTION_NAME func_name)
    ;

node_asterisk
    : asterisk -> ^(ASTERISK_ asterisk)
    ;

asterisk
    : ASTERISK
    ;

db_name
    : quoted_identifier
    | IDENTIFICATOR
    ;

table_name
    : quoted_identifier
    | IDENTIFICATOR
    ;

column_name
    : quoted_identifier
    | IDENTIFICATOR
    | ASTERISK
    ;

func_name
    : quoted_identifier
    | IDENTIFICATOR
    ;

plain_name
    : quoted_identifier
    | IDENTIFICATOR
    ;

assign_name
    : (quoted_identifier | IDENTIFICATOR) EQ expression
    ;

// The words that are names without quotes, and names in brackets or quotes: Date, "Unit Price"
quoted_identifier
    : date_part
    | COL_PAREN_ATTRITION
    | MY_QUOTE_ATTRITION
    | all_keyword
    ;

all_keyword
    : LOG
    | PI
    | data_type
    ;

node_new_name
    : new_name -> ^(NEW_NAME new_name)
    ;

// x, Count, #x; a string is no name
new_name
    : '\''!? ('##' | '#')? (group_function | quoted_identifier | IDENTIFICATOR) ('##' | '#')? '\''!? RIGHT_COL_PAREN!?
    ;

node_comma
    : comma -> ^(COMMA_KEYWORD comma)
    ;

comma
    : COMMA!
    ;

// --------------------------------------------------------------- conditions

// AND and OR stand at one level: a = 1 OR b = 2 AND c = 3 is ^(AND ^(OR a b) c)
logical_expression
    : logical_factor (logical_operator^ logical_factor)*
    ;

logical_operator
    : AND_KEYWORD
    | AND_KEYWORD2
    | OR_KEYWORD
    | OR_KEYWORD2
    ;

// a BETWEEN 1 AND 2, a = 1, NOT a = 1, a. NOT before a chain in parentheses is no condition: NOT (a = 1 AND b = 2)
logical_factor
    : LEFT_PAREN? between_expression
    | node_search_condition
    | (NOT_KEYWORD open_chain)=> expression  // which never begins so
    | NOT_KEYWORD! node_not_condition
    | expression
    ;

// Guessed only: a condition that leaves the parenthesis at its beginning open before an operator: (a = 1 AND
open_chain
@declarations { pANTLR3_COMMON_TOKEN first; }
@init { first = LT(1); }
    : search_condition {qzIsLeftOpen(ctx->pParser->tstream, first)}? logical_operator
    ;

node_not_condition
    : node_search_condition -> ^(NOT_CONDITION node_search_condition)
    ;

// a NOT BETWEEN 1 AND 2
between_expression
    : expression NOT_KEYWORD? BETWEEN_KEYWORD^ between_logical_expression RIGHT_PAREN!?
    ;

// The AND of BETWEEN is a logical operator like any other: 1 AND 2
between_logical_expression
    : expression ((logical_operator expression)=> logical_operator^ expression)?
    ;

node_search_condition
    : search_condition -> ^(SEARCH_CONDITION search_condition)
    ;

// a = 1; the right side takes a closing parenthesis, so only a second pair fits here: ((a = 1))
search_condition
    : (LEFT_PAREN func_comparison RIGHT_PAREN)=> LEFT_PAREN! func_comparison RIGHT_PAREN!
    | func_comparison
    ;

// a NOT IN (1, 2) is ^(IN ^(NOT a) 1 2). NOT is the infix word where a comparison follows it, else the comparison itself:
// a NOT b
func_comparison
    : LEFT_PAREN? between_expression
    | func_parameter ((NOT_KEYWORD comparison)=> NOT_KEYWORD^)? comparison^ (func_parameter | node_sql_query)
    ;

comparison
    : EQ
    | GE
    | GOJ
    | GT
    | IN_KEYWORD
    | IS_KEYWORD
    | LE
    | LIKE_KEYWORD
    | LOJ
    | L_T
    | NOT_EQ
    | NOT_KEYWORD
    ;

// (1, 2): neither parenthesis asks for the other
func_parameter
    : LEFT_PAREN!? parameters RIGHT_PAREN!?
    ;

parameters
    : (expression | '@' IDENTIFICATOR) next_expression*
    ;

// One more of a list. Where it fits, it fits up to the end of the list, which is remembered for all of it at once.
next_expression
    : COMMA! expression
    ;

result_expression
    : logical_expression
    | expression
    ;

node_and_condition
    : and_condition -> ^(AND and_condition)
    ;

and_condition
    : AND_KEYWORD!? node_search_condition
    ;

node_search_condition1
    : search_condition1 -> ^(SEARCH_CONDITION search_condition1)
    ;

search_condition1
    : (LEFT_PAREN func_comparison1 RIGHT_PAREN)=> LEFT_PAREN! func_comparison1 RIGHT_PAREN!
    | func_comparison1
    ;

func_comparison1
    : LEFT_PAREN? between_expression
    | func_parameter1 comparison^ (func_parameter1 | node_sql_query)
    ;

func_parameter1
    : LEFT_PAREN!? (expression | '@' IDENTIFICATOR) RIGHT_PAREN!?
    ;

// -------------------------------------------------------------- expressions

// -a + b is ^(PLUS ^(MINUS a) b)
expression
    : ((prefix_sign)=> (PLUS^ | MINUS^))* term ((PLUS^ | MINUS^) term)*
    ;

// Guessed only: the sign is a prefix unless a number starts at it, -1, -.5, -NULL
prefix_sign
    : znak ~(DIGIT | DOT | NULL_KEYWORD | NOT_KEYWORD)
    ;

// a * b & c: one level, left-associative
term
    : factor ((ASTERISK^ | DIVIDE^ | MOD^ | AMPERSAND^) factor)*
    ;

// a || b
factor
    : factor2 (OR_KEYWORD2^ factor2)*
    ;

// Before anything else a name is a column with the mark of an outer join: a(+), for which a call would fit as well.
factor2
    : node_sql_literal
    | (node_column_specification LEFT_PAREN PLUS RIGHT_PAREN)=> variable
    | all_node_function
    | node_func_alias
    | LEFT_PAREN! expression RIGHT_PAREN!
    | variable
    | expression_list
    | node_table_specification
    | all_sql_query
    | (word_without_call)=> node_word
    | node_column_specification
    ;

// (1, 2, 3)
expression_list
    : LEFT_PAREN expression next_expression* RIGHT_PAREN
    ;

// a, a(+)
variable
    : (node_column_specification LEFT_PAREN PLUS RIGHT_PAREN)=> node_column_specification node_where_join
    | node_column_specification
    ;

node_where_join
    : where_join -> ^(WHERE_JOIN where_join)
    ;

where_join
    : LEFT_PAREN PLUS RIGHT_PAREN
    ;

// Guessed only: the word of a built-in function that is not called, GETDATE.
word_without_call
    : function_word (~LEFT_PAREN | EOF)
    ;

// Such a word is a column's name.
node_word
    : function_word -> ^(COLUMN_SPECIFICATION ^(COLUMN_NAME function_word))
    ;

// The words LEFT and RIGHT belong to joins.
function_word
    : group_function
    | number_function
    | string_word
    | datetime_function
    | configuration_function
    | system_fumction
    | CONVERT
    ;

node_func_alias
    : func_alias -> ^(ALIAS func_alias)
    ;

func_alias
    : all_node_function LITERAL_AS!? node_new_name
    ;

node_sql_literal
    : sql_literal -> ^(SQL_LITERAL sql_literal)
    ;

sql_literal
    : node_number
    | node_date_literal
    | node_quoted_string
    ;

node_number
    : role_number -> ^(NUMBER_LITERAL role_number)
    ;

// Tokens, not one word: -1.5 is MINUS DIGIT DOT DIGIT; NOT NULL
role_number
    : (MINUS | PLUS)?
      ( exp_number
      | DOT DIGIT
      | (DIGIT)=> DIGIT ((DOT DIGIT)=> DOT DIGIT)?
      | NOT_KEYWORD? NULL_KEYWORD
      )
    ;

// 1.5E+3
exp_number
    : DIGIT (DOT DIGIT)? IDENTIFICATOR znak* DIGIT
    ;

znak
    : MINUS
    | PLUS
    ;

node_quoted_string
    : quoted_string -> ^(SQL_STRING quoted_string)
    ;

quoted_string
    : QUOTE_ATTRITION
    ;

node_date_literal
    : d_date_literal -> ^(DATE d_date_literal)
    ;

// Never fits: a string is one token.
d_date_literal
    : '\''
      ( role_number DIVIDE role_number DIVIDE role_number
      | IDENTIFICATOR WS* role_number COMMA? WS* role_number
      )
      '\''
    ;

node_maximum
    : maximum -> ^(NUMBER_LITERAL maximum)
    ;

maximum
    : ALL_KEYWORD
    | MAX_KEYWORD
    ;

// ---------------------------------------------------------------- functions

all_node_function
    : node_function
    ;

// VAR is a group function first.
node_function
    : group_function_ -> ^(FUNCTION group_function_)
    | function_ -> ^(FUNCTION function_)
    | user_func_name -> ^(USER_FUNCTION user_func_name)
    | convert_function -> ^(FUNCTION convert_function)
    | case_function -> ^(FUNCTION case_function)
    | exist_func -> ^(FUNCTION exist_func)
    | extract_function -> ^(FUNCTION extract_function)
    | ora_functions -> ^(FUNCTION ora_functions)
    ;

// NVL(a, 0)
function_
    : function node_func_param
    ;

// {fn YEAR: the closing brace is not taken
function
    : number_function
    | string_function
    | LEFT_BRACE!? escape_syn? datetime_function
    | configuration_function
    | system_fumction
    ;

escape_syn
    : 'fn'
    ;

group_function_
    : group_function node_group_func_param
    ;

// f(1), p.f(1), "p".f(1): a plain qualifier is dropped, a quoted one stays
user_func_name
    : (((IDENTIFICATOR | node_db_name) DOT)=> (IDENTIFICATOR! | node_db_name) DOT!)? IDENTIFICATOR node_func_param
    ;

convert_function
    : convert_func node_convert_func_param
    ;

case_function
    : CASE node_case_param
    ;

extract_function
    : extract_func node_extract_func
    ;

node_extract_func
    : extract_func_param -> ^(FUNC_PARAM extract_func_param)
    ;

// (YEAR FROM d)
extract_func_param
    : LEFT_PAREN!? node_extract_type FROM_KEYWORD^ expression RIGHT_PAREN!?
    ;

node_extract_type
    : extract_type -> ^(SQL_LITERAL extract_type)
    ;

extract_type
    : datetime_function -> ^(NUMBER_LITERAL datetime_function)
    ;

// EXISTS (SELECT a FROM t)
exist_func
    : (EXISTS | MULTISET) node_exist_func_param
    ;

node_exist_func_param
    : all_sql_query -> ^(FUNC_PARAM all_sql_query)
    ;

node_func_param
    : function_param -> ^(FUNC_PARAM function_param)
    ;

// (mm, a + 1 b: neither commas nor the closing parenthesis are asked for
function_param
    : LEFT_PAREN!
      ((node_date_part | expression) ((COMMA? expression)=> COMMA!? expression)*)?
      RIGHT_PAREN!?
    ;

node_date_part
    : date_part -> ^(DATE_PART date_part)
    ;

node_group_func_param
    : group_func_param -> ^(FUNC_PARAM group_func_param)
    ;

// (DISTINCT a, b), (*)
group_func_param
    : LEFT_PAREN!? (ALL_KEYWORD | DISTINCT_KEYWORD)? (ASTERISK | expression next_expression*) RIGHT_PAREN!?
    ;

node_convert_func_param
    : convert_func_param -> ^(FUNC_PARAM convert_func_param)
    ;

// (NUMBER(10), a, 1), (a AS NUMBER(10))
convert_func_param
    : LEFT_PAREN!? node_datatype COMMA! expression ((COMMA node_style)=> COMMA! node_style)? RIGHT_PAREN!?
    | LEFT_PAREN!? expression as_rock^ node_datatype RIGHT_PAREN!?
    ;

as_rock
    : LITERAL_AS
    ;

node_style
    : role_number -> ^(STYLE role_number)
    ;

node_datatype
    : data_type_all -> ^(DATATYPE data_type_all)
    ;

// NUMBER(10, 2), VARCHAR2(10 BYTE)
data_type_all
    : data_type
      ( LEFT_PAREN!? (node_maximum | node_number node_datatype?) ((COMMA node_number)=> COMMA! node_number)*
        RIGHT_PAREN!?
      )?
    | data_type
    ;

node_case_param
    : case_param -> ^(FUNC_PARAM case_param)
    ;

// a WHEN 1 THEN 'x' ELSE 'y' END
case_param
    : (LEFT_PAREN! expression RIGHT_PAREN! | expression)? node_atrib_case_func* END
    ;

node_atrib_case_func
    : case_atrib_func -> ^(FUNCTION case_atrib_func)
    ;

case_atrib_func
    : case_atrib_function
    ;

case_atrib_function
    : (WHEN | THEN | ELSE) node_case_func_param
    ;

node_case_func_param
    : case_func_param -> ^(FUNC_PARAM case_func_param)
    ;

case_func_param
    : result_expression
    ;

group_function
    : AVG | BYNARY_CHECKSUM | CHECKSUM | COUNT | COUNT_BIG | GROUPING | MAX_KEYWORD | MIN | STDEV | STDEVP | SUM | VAR
    | VARP
    ;

number_function
    : ABS | ACOS | ASIN | ATAN | ATN2 | CEILING | COS | COT | DEGREES | EXP | FLOOR | ISNUMERIC | LOG | LOG10 | PI
    | POWER | RADIANS | RAND | ROUND | SIGN | SIN | SQRT | TAN | 'dbms_random.value'
    ;

string_function
    : string_word
    | LEFT_KEYWORD
    | RIGHT_KEYWORD
    ;

string_word
    : ASCII | CHAR | CHARINDEX | COALESCE | DIFFERENCE | INSTR | LEN | LOWER | LTRIM | NCHAR | PARINDEX | QUOTENAME
    | READTEXT | REPLACE | REPLICATE | REVERSE | RTRIM | SOUNDEX | SPACE | STR | STUFF | SUBSTR | TEXTVALID | UNICODE
    | UPDATETEXT | UPPER | VAR | WRITETEXT | 'SET TEXTSIZE'
    ;

datetime_function
    : DATEADD | DATEDIFF | DATENAME | DATEPART | DAY | FROM_TZ | GETDATE | GETUTCDATE | HOUR | ISDATE | MINUTE | MONTH
    | MONTHS_BETWEEN | SECOND | TRUNC | WEEKDAY | YEAR
    ;

configuration_function
    : '@@CONNECTION' | '@@DATEFIRST' | '@@DBTS' | '@@LANGID' | '@@LANGUAGE' | '@@LOCK_TIMEOUT' | '@@MAX_CONNECTIONS'
    | '@@MAX_PRECISION' | '@@NESTLEVEL' | '@@OPTIONS' | '@@REMSERVER' | '@@SERVERNAME' | '@@SERVICENAME' | '@@SPID'
    | '@@TEXTSIZE' | '@@VERSION'
    ;

system_fumction
    : ADD_MONTHS | BITAND | DECODE | MAKE_REF | NULLIF | NVL | SYS_CONTEXT | TO_CHAR | TO_DATE | USERENV
    ;

convert_func
    : CAST | CONVERT
    ;

extract_func
    : EXTRACT
    ;

ora_functions
    : CURRENT_DATE | CURRENT_TIMESTAMP
    ;

date_part
    : 'mi' | 'mm' | 'wk' | 'yy' | 'yyyy'
    ;

data_type
    : BIGINT | BIT | BYTE | CHAR | DATE | DECIMAL | FLOAT | INT | INTEGER | MONEY | NCHAR | NTEXT | NUMBER | NUMERIC
    | NVARCHAR | RAW | REAL | SMALLDATETIME | SMALLMONEY | TIMESTAMP | TINYINT | VARCHAR | VARCHAR2
    ;

// ------------------------------------------------------------------- tokens

// Keywords, any case; the earlier rule wins a tie: Merge, MERGE

SELECT_KEYWORD : S E L E C T;
TOP_KEYWORD : T O P;
ALL_KEYWORD : A L L;
DISTINCT_KEYWORD : D I S T I N C T;
PERCENT_KEYWORD : P E R C E N T;
WITHTIES_KEYWORD : W I T H T I E S;
FROM_KEYWORD : F R O M;
EXISTS : E X I S T S;
MULTISET : M U L T I S E T;
LITERAL_AS : A S;
LEFT_COL_PAREN : '[';
RIGHT_COL_PAREN : ']';
MY_QUOTE : '"';
MY_ONE_QUOTE : '`';
INNER_KEYWORD : I N N E R;
JOIN_KEYWORD : J O I N;
LEFT_KEYWORD : L E F T;
RIGHT_KEYWORD : R I G H T;
FULL_KEYWORD : F U L L;
OUTER_KEYWORD : O U T E R;
LEFT_BRACE : '{';
RIGHT_BRACE : '}';
CROSS_KEYWORD : C R O S S;
WITH_KEYWORD : W I T H;
LEFT_PAREN : '(';
RIGHT_PAREN : ')';
ON_KEYWORD : O N;
NULL_KEYWORD : N U L L;
WHERE_KEYWORD : W H E R E;
CUBE_KEYWORD : C U B E;
ROLLUP_KEYWORD : R O L L U P;
HAVING_KEYWORD : H A V I N G;
UNION_KEYWORD_ : U N I O N;
GROUP_KEYWORD : G R O U P;
ORDER_KEYWORD : O R D E R;
PARTITION_KEYWORD : P A R T I T I O N;
ASC_KEYWORD : A S C;
DESC_KEYWORD : D E S C;
COMPUTE_KEYWORD : C O M P U T E;
BY_KEYWORD : B Y;
FOR_KEYWORD : F O R;
OPTION_KEYWORD : O P T I O N;
AND_KEYWORD : A N D;
AND_KEYWORD2 : '&&';
OR_KEYWORD : O R;
OR_KEYWORD2 : '||';
BETWEEN_KEYWORD : B E T W E E N;
LIKE_KEYWORD : L I K E;
IS_KEYWORD : I S;
NOT_KEYWORD : N O T;
IN_KEYWORD : I N;
WHEN : W H E N;
THEN : T H E N;
ELSE : E L S E;
END : E N D;
CASE : C A S E;
DATE : D A T E;
VARCHAR : V A R C H A R;
VARCHAR2 : V A R C H A R '2';
CHAR : C H A R;
INT : I N T;
NUMERIC : N U M E R I C;
CONCAT : C O N C A T;
FLOAT : F L O A T;
MONEY : M O N E Y;
DECIMAL : D E C I M A L;
SMALLMONEY : S M A L L M O N E Y;
BIGINT : B I G I N T;
BIT : B I T;
REAL : R E A L;
SMALLDATETIME : S M A L L D A T E T I M E;
NVARCHAR : N V A R C H A R;
TINYINT : T I N Y I N T;
NTEXT : N T E X T;
TIMESTAMP : T I M E S T A M P;
INTEGER : I N T E G E R;
NUMBER : N U M B E R;
RAW : R A W;
BYTE : B Y T E;
GETDATE : G E T D A T E;
WEEKDAY : W E E K D A Y;
DATEADD : D A T E A D D;
DATEDIFF : D A T E D I F F;
DATENAME : D A T E N A M E;
DATEPART : D A T E P A R T;
DAY : D A Y;
GETUTCDATE : G E T U T C D A T E;
HOUR : H O U R;
ISDATE : I S D A T E;
MONTH : M O N T H;
MINUTE : M I N U T E;
YEAR : Y E A R;
SECOND : S E C O N D;
FROM_TZ : F R O M '_' T Z;
EXTRACT : E X T R A C T;
TRUNC : T R U N C;
MONTHS_BETWEEN : M O N T H S '_' B E T W E E N;
CURRENT_DATE : C U R R E N T '_' D A T E;
CURRENT_TIMESTAMP : C U R R E N T '_' T I M E S T A M P;
TO_CHAR : T O '_' C H A R;
TO_DATE : T O '_' D A T E;
ADD_MONTHS : A D D '_' M O N T H S;
CONVERT : C O N V E R T;
CAST : C A S T;
AVG : A V G;
BYNARY_CHECKSUM : B Y N A R Y '_' C H E C K S U M;
CHECKSUM : C H E C K S U M;
COUNT : C O U N T;
COUNT_BIG : C O U N T '_' B I G;
GROUPING : G R O U P I N G;
MAX_KEYWORD : M A X;
MIN : M I N;
SUM : S U M;
STDEV : S T D E V;
STDEVP : S T D E V P;
VAR : V A R;
VARP : V A R P;
ABS : A B S;
ACOS : A C O S;
ASIN : A S I N;
ATAN : A T A N;
ATN2 : A T N '2';
CEILING : C E I L I N G;
COS : C O S;
COT : C O T;
DEGREES : D E G R E E S;
EXP : E X P;
FLOOR : F L O O R;
ISNUMERIC : I S N U M E R I C;
LOG : L O G;
LOG10 : L O G '10';
PI : P I;
POWER : P O W E R;
RADIANS : R A D I A N S;
RAND : R A N D;
ROUND : R O U N D;
SIGN : S I G N;
SIN : S I N;
SQRT : S Q R T;
TAN : T A N;
BITAND : B I T A N D;
NVL : N V L;
NULLIF : N U L L I F;
ASCII : A S C I I;
CHARINDEX : C H A R I N D E X;
COALESCE : C O A L E S C E;
DIFFERENCE : D I F F E R E N C E;
LEN : L E N;
LOWER : L O W E R;
LTRIM : L T R I M;
NCHAR : N C H A R;
PARINDEX : P A R I N D E X;
QUOTENAME : Q U O T E N A M E;
READTEXT : R E A D T E X T;
REPLACE : R E P L A C E;
REPLICATE : R E P L I C A T E;
REVERSE : R E V E R S E;
RTRIM : R T R I M;
SOUNDEX : S O U N D E X;
SPACE : S P A C E;
STR : S T R;
STUFF : S T U F F;
SUBSTR : S U B S T R;
INSTR : I N S T R;
TEXTVALID : T E X T V A L I D;
UNICODE : U N I C O D E;
UPDATETEXT : U P D A T E T E X T;
UPPER : U P P E R;
WRITETEXT : W R I T E T E X T;
LOOP : L O O P;
HASH : H A S H;
MERGE : M E R G E;
REMOTE : R E M O T E;
DECODE : D E C O D E;
USERENV : U S E R E N V;
SYS_CONTEXT : S Y S '_' C O N T E X T;
MAKE_REF : M A K E '_' R E F;
ROW_NUMBER : R O W '_' N U M B E R;
OVER : O V E R;

// A run of digits; points and exponents are put together by the parser: 10
DIGIT : '0'..'9'+;

// a$b#1; never a leading digit, and only the letters of English
IDENTIFICATOR : ('A'..'Z' | '_' | 'a'..'z') ('#' | '$' | '0'..'9' | 'A'..'Z' | '_' | 'a'..'z')*;

// Brackets and quotes are part of the token and there is no escape: [Unit Price], 'it', "it"
COL_PAREN_ATTRITION : '[' ~']'* ']';
QUOTE_ATTRITION : '\'' ~'\''* '\'';
MY_QUOTE_ATTRITION : MY_QUOTE ~'"'* MY_QUOTE;

PLUS : '+';
MINUS : '-';
AMPERSAND : '&';
DIVIDE : '/';
DOT : '.';
ASTERISK : '*';
COMMA : ',';
VERTBAR : '|';
MOD : '%';
EQ : '=';
L_T : '<';
GT : '>';
NOT_EQ : '!=' | '<>';
LE : '<=';
GE : '>=';
LOJ : '*=';
GOJ : '=*';

// One unit of white space a token, on the hidden channel
WS : (' ' | '\t' | '\r' '\n' | '\n' | '\r') { $channel = HIDDEN; };

fragment A : 'A' | 'a';
fragment B : 'B' | 'b';
fragment C : 'C' | 'c';
fragment D : 'D' | 'd';
fragment E : 'E' | 'e';
fragment F : 'F' | 'f';
fragment G : 'G' | 'g';
fragment H : 'H' | 'h';
fragment I : 'I' | 'i';
fragment J : 'J' | 'j';
fragment K : 'K' | 'k';
fragment L : 'L' | 'l';
fragment M : 'M' | 'm';
fragment N : 'N' | 'n';
fragment O : 'O' | 'o';
fragment P : 'P' | 'p';
fragment Q : 'Q' | 'q';
fragment R : 'R' | 'r';
fragment S : 'S' | 's';
fragment T : 'T' | 't';
fragment U : 'U' | 'u';
fragment V : 'V' | 'v';
fragment W : 'W' | 'w';
fragment X : 'X' | 'x';
fragment Y : 'Y' | 'y';
fragment Z : 'Z' | 'z';
fragment UNDERLINE : '_';
