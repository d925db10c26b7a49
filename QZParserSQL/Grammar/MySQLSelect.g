// MySQL: the lexer and parser of stored queries.
//
// Two layers of words: a word in quotes is a token in the case shown and wins a tie, a keyword rule takes any case. No
// token is made of white space, the lexer drops it like any stray character; strings and names in backticks are runs of
// tokens between two marks. The parser decides by one token and, where several alternatives remain, by guesses in the
// order written. A clause whose guess fails is no error: it trails at the root with all that follows it. Parentheses
// are taken where they stand and need no partner. Rules called node_x wrap the rule x in a node; a rule marked "guessed
// only" is never part of a tree.
grammar MySQLSelect;

options {
    language = C;
    output = AST;
    ASTLabelType = pANTLR3_BASE_TREE;
    backtrack = true;
    memoize = true;
    k = 1;
}

tokens {
    // Nodes made by the grammar. DATE is one too, and the token of the word.
    SELECT_QUERY_MY; SELECT_QUERY_IN; PREDICATE; SELECT_LIST; PROCEDURE; PROCNAME; PARAMETER; COLUMN_SPECIFICATION;
    TABLE_SPECIFICATION; FUNCTION_SPECIFICATION; DB_NAME; TABLE_NAME; COLUMN_NAME; FUNCTION_NAME; NEW_NAME; ALIAS;
    TABLE_HINT; JOIN_DEF; SQL_STRING; JOIN_PREFIX; JOIN_POSTFIX; JOIN_CONDITION; NESTED_JOIN; FUNCTION_MY; FUNC_PARAM;
    GROUP_FUNCTION; SQL_LITERAL; NUMBER_literal; SEARCH_CONDITION; WHERE_CONDITION; GROUP_BY; HAVING; UNION; ORDER_BY;
    COMPUTE; BY; FOR; OPTION; NUMBER_LITERAL; LITERALAS; STYLE; DATATYPE; CONVERT_FUNCTION; USER_FUNCTION;
    DATE_FUNCTION; AS; FROM_DEF_; AND; LIMIT; IN_; DATE_PART; ASTERISK_; NESTED_JOIN_PREFIX; NESTED_JOIN_POSTFIX;
    NESTED_JOIN_SERCH;
}

@parser::includes {
#include "QZParserSQL/Grammar/Predicates.h"
}

// ---------------------------------------------------------------- statement

// The entry rule. Whatever stands behind the query trails at the root, EOF last: SELECT a b c
sql_root
@init { qzPairParentheses(ctx->pParser->tstream); }
    : all_sql_query .* EOF
    ;

all_sql_query
    : node_sql_query
    ;

node_sql_query
    : sql_query -> ^(SELECT_QUERY_MY sql_query)
    ;

// A clause is entered only where its guess succeeds, else it trails with all that follows it. The parenthesis before
// SELECT is taken with a second one, which then is left out: ((SELECT a) UNION SELECT b)
sql_query
    : ((LEFT_PAREN LEFT_PAREN? SELECT_KEYWORD)=> LEFT_PAREN!)? SELECT_KEYWORD! node_predicate? node_select_list
      ((from_list)=> from_list)?
      ((node_where_condition)=> node_where_condition)?
      ((node_group_by)=> node_group_by)?
      ((node_having)=> node_having)?
      ((node_order_by)=> node_order_by)?
      ((node_limit)=> node_limit)?
      ((node_compute)=> node_compute)?
      ((node_for)=> node_for)?
      ((node_option)=> node_option)?
      ((further_query)=> node_union)?
      RIGHT_PAREN!?
    ;

// Guessed only: a union, but not behind a text's first query that stands in parentheses: (SELECT a) UNION SELECT b
further_query
    : {!qzIsBehindFirstPair(ctx->pParser->tstream)}? node_union
    ;

node_union
    : union_ -> ^(UNION union_)
    ;

// UNION ALL SELECT b FROM u
union_
    : UNION_KEYWORD! ALL_KEYWORD? node_sql_query
    ;

node_predicate
    : predicate -> ^(PREDICATE predicate)
    ;

// DISTINCT TOP 5 PERCENT; or nothing, before any item
predicate
    : (ALL_KEYWORD | DISTINCT_KEYWORD | DISTINCTROW)? top_expression?
    ;

// TOP (5) PERCENT
top_expression
    : TOP_KEYWORD^ LEFT_PAREN!? node_number RIGHT_PAREN!? PERCENT_KEYWORD? WITHTIES_KEYWORD?
    ;

node_select_list
    : select_list_ -> ^(SELECT_LIST select_list_)
    ;

// a, b AS x, COUNT(*)
select_list_
    : select_list ((COMMA select_list)=> COMMA! select_list)*
    ;

// One item: *, a x, (a + 1)
select_list
    : node_asterisk
    | node_fff
    | LEFT_PAREN!? variety_select RIGHT_PAREN!?
    ;

node_fff
    : fff -> ^(ALIAS fff)
    ;

// An item with an alias: a AS x, (a + 1) x
fff
    : LEFT_PAREN!? variety_select RIGHT_PAREN!? LITERAL_AS!? node_new_name
    ;

// a + 1 > b
variety_select
    : derived_table
    | expression ((comparison expression)=> comparison^ expression)*
    | node_sql_sub_query
    | node_column_specification
    | 'IDENTIFYCOL'
    | 'ROWGUIDCOL'
    ;

node_sql_sub_query
    : sql_sub_query -> ^(SELECT_QUERY_MY sql_sub_query)
    ;

sql_sub_query
    : all_sql_query
    ;

// The query takes the closing parenthesis for its own where it can: ((SELECT a ORDER BY b))
derived_table
    : LEFT_PAREN! node_sql_query RIGHT_PAREN!
    ;

// --------------------------------------------------------------------- FROM

// FROM t, u AS x
from_list
    : FROM_KEYWORD! node_from_list RIGHT_PAREN!*
    ;

node_from_list
    : from_list_ -> ^(FROM_DEF_ from_list_)
    ;

from_list_
    : all_table_source_ ((COMMA all_table_source_)=> COMMA! all_table_source_)*
    ;

// A join first, then a name with or without an alias, then a query; before any other token the source is empty.
all_table_source_
    : table_source_
    | node_t_n
    | node_table_specification
    | table_source?
    | column_specification
    | node_sq_alias
    | all_sql_query
    ;

// (t1 INNER JOIN t2 ON t1.x = t2.x)
table_source_
    : LEFT_PAREN!* node_joined_table_ RIGHT_PAREN!?
    ;

// t1 JOIN t2 ON a = b JOIN t3 ON c = d: the second join stands beside the first
node_joined_table_
    : joined_table ((nestedJoin)=> nestedJoin)? -> ^(JOIN_DEF joined_table nestedJoin?)
    ;

joined_table
    : LEFT_PAREN!? joined_table_ RIGHT_PAREN!?
    ;

// A join chained on has an empty prefix: JOIN t3 ON c = d
joined_table_
    : node_join_prefix JOIN_KEYWORD^ node_join_postfix_
    | JOIN_KEYWORD^ node_join_postfix_
    ;

node_join_prefix
    : node_test_prefix -> ^(JOIN_PREFIX node_test_prefix)
    ;

node_test_prefix
    : LEFT_PAREN!? join_prefix RIGHT_PAREN!?
    ;

// t1 x LEFT OUTER
join_prefix
    : ( (node_t_n)=> node_t_n
      | (node_table_specification)=> node_table_specification
      | (join_type)=> join_type
      )*
      join_type?
    ;

// There is no FULL and no bare NATURAL: NATURAL LEFT OUTER, STRAIGHT
join_type
    : CROSS_KEYWORD
    | INNER_KEYWORD
    | STRAIGHT_KEYWORD
    | LEFT_KEYWORD OUTER_KEYWORD?
    | (NATURAL_KEYWORD LEFT_KEYWORD)=> NATURAL_KEYWORD LEFT_KEYWORD OUTER_KEYWORD?
    | RIGHT_KEYWORD OUTER_KEYWORD?
    | NATURAL_KEYWORD RIGHT_KEYWORD OUTER_KEYWORD?
    ;

// t2 ON a = b; or a join and its condition: t2 JOIN t3 ON c = d ON a = b
node_join_postfix_
    : ((old_big_postfix)=> old_big_postfix)? ((join_postfix_)=> join_postfix_)?
      ((on_search_contition)=> on_search_contition)?
      -> ^(JOIN_POSTFIX old_big_postfix? join_postfix_? on_search_contition?)
    ;

old_big_postfix
    : ((node_joined_table_)=> node_joined_table_)? big_postfix
    ;

big_postfix
    : postfix_table
    ;

join_postfix_
    : postfix_table ((node_joined_table_)=> node_joined_table_)?
    ;

// t2, t2 x, (t2 JOIN t3 ON c = d); or nothing
postfix_table
    : ( (LEFT_PAREN? nestedJoin)=> LEFT_PAREN!? nestedJoin RIGHT_PAREN!?
      | (node_t_n)=> node_t_n
      | (node_table_specification)=> node_table_specification
      )*
    ;

nestedJoin
    : node_joined_table_
    ;

// ON (a = b) AND (c = d): each operator becomes the root over all that stands before it, ON included
on_search_contition
    : ON_KEYWORD^ LEFT_PAREN!? LEFT_PAREN!? node_search_condition RIGHT_PAREN!?
      ((logical_operator LEFT_PAREN? node_search_condition)=>
       logical_operator^ LEFT_PAREN!? node_search_condition RIGHT_PAREN!?)*
      RIGHT_PAREN!?
    ;

// t WITH (with (NOLOCK)); a name is taken by all_table_source_ before it comes here
table_source
    : (node_t_n | node_table_specification)
      ('WITH' LEFT_PAREN? table_hint (COMMA! table_hint)* RIGHT_PAREN!)?
    | node_d_t ((select_list)=> select_list ((COMMA select_list)=> COMMA! select_list)*)?
    ;

node_d_t
    : d_t -> ^(ALIAS d_t)
    ;

// ((SELECT a ORDER BY b)) AS x
d_t
    : derived_table LITERAL_AS!? node_new_name
    ;

node_t_n
    : t_n -> ^(ALIAS t_n)
    ;

// t AS x
t_n
    : node_table_specification LITERAL_AS!? node_new_name
    ;

node_sq_alias
    : sq_alias -> ^(ALIAS sq_alias)
    ;

// (SELECT a FROM t) AS x
sq_alias
    : all_sql_query LITERAL_AS!? node_new_name
    ;

// ------------------------------------------------------------------ clauses

node_where_condition
    : where_condition -> ^(WHERE_CONDITION where_condition)
    ;

// WHERE a = 1 AND b = 2
where_condition
    : WHERE_KEYWORD! logical_expression
    ;

node_group_by
    : group_by -> ^(GROUP_BY group_by)
    ;

// GROUP BY a, YEAR(b), 1 with ROLLUP: the first is a column, and what begins with a name is one
group_by
    : GROUP_KEYWORD! BY_KEYWORD! ALL_KEYWORD? node_column_specification
      ((COMMA group_by_item)=> COMMA! group_by_item)*
      ((WITH_KEYWORD (CUBE_KEYWORD | ROLLUP_KEYWORD))=> WITH_KEYWORD (CUBE_KEYWORD | ROLLUP_KEYWORD))?
    ;

group_by_item
    : node_column_specification
    | expression
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
    : ORDER_KEYWORD! BY_KEYWORD! expression direction? ((COMMA expression)=> COMMA! expression direction?)*
    ;

direction
    : ASC_KEYWORD
    | DESC_KEYWORD
    ;

node_limit
    : limit -> ^(LIMIT limit)
    ;

// LIMIT 5, 10
limit
    : LIMIT_KEYWORD! expression ((COMMA expression)=> COMMA! expression)?
    ;

node_compute
    : compute -> ^(COMPUTE compute)
    ;

// COMPUTE SUM(a), MAX(b) BY c
compute
    : COMPUTE_KEYWORD! all_node_function ((COMMA all_node_function)=> COMMA! all_node_function)*
      ((node_by)=> node_by)?
    ;

node_by
    : by -> ^(BY by)
    ;

by
    : BY_KEYWORD! node_column_specification ((COMMA node_column_specification)=> COMMA! node_column_specification)*
    ;

node_for
    : for_ -> ^(FOR for_)
    ;

// FOR XML AUTO.ELEMENTS: the separator is a dot
for_
    : FOR_KEYWORD!
      ( 'BROWSE'
      | 'XML' ('RAW' | 'AUTO' | 'EXPLICIT') ((DOT 'XMLDATA')=> DOT 'XMLDATA')? ((DOT 'ELEMENTS')=> DOT 'ELEMENTS')?
        ((DOT 'BYNATY base64')=> DOT 'BYNATY base64')?
      )
    ;

node_option
    : option -> ^(OPTION option)
    ;

// OPTION FAST 10, KEEP PLAN: no parentheses
option
    : OPTION_KEYWORD! query_hint ((COMMA query_hint)=> COMMA! query_hint)*
    ;

query_hint
    : (ORDER_KEYWORD | 'HASH') GROUP_KEYWORD
    | (CONCAT | 'HASH' | 'MERGE') UNION_KEYWORD
    | 'FAST' node_number
    | 'FORCE' ORDER_KEYWORD
    | 'MAXDOP' node_number
    | ('ROBUST' | 'KEEP' | 'KEEPFIXED') 'PLAN'
    | 'EXPAND VIEWS'
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

// ----------------------------------------------------------- tables, columns

node_table_specification
    : table_specification -> ^(TABLE_SPECIFICATION table_specification)
    ;

// db.t
table_specification
    : (node_db_name DOT node_table_name)=> node_db_name DOT! node_table_name
    | node_table_name
    ;

node_column_specification
    : column_specification -> ^(COLUMN_SPECIFICATION column_specification)
    ;

// db.t.a, db.t* before FROM or a comma, t.a, a. There is no t.*: t is a column there, and the rest trails
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
    ;

new_name
    : quoted_identifier
    | IDENTIFICATOR
    ;

// `order date`: the tokens ORDER_KEYWORD and DATE
quoted_identifier
    : MY_ONE_QUOTE! (~MY_ONE_QUOTE)* MY_ONE_QUOTE!
    ;

node_new_name
    : new_name -> ^(NEW_NAME new_name)
    ;

// --------------------------------------------------- rules that none calls

join_hint
    : 'LOOP'
    | 'HASH'
    | 'MERGE'
    | 'REMOTE'
    ;

node_and_condition
    : and_condition -> ^(AND and_condition)
    ;

// AND a = 1
and_condition
    : AND_KEYWORD!? node_search_condition
    ;

all_old_big_postfix
    : old_big_postfix
    ;

node_as_token
    : as_token -> ^(AS as_token)
    ;

as_token
    : LITERAL_AS
    ;

node_alias
    : alias -> ^(ALIAS alias)
    ;

// AS x
alias
    : LITERAL_AS! node_new_name
    ;

node_func_name
    : func_name -> ^(FUNCTION_NAME func_name)
    ;

func_name
    : quoted_identifier
    | IDENTIFICATOR
    ;

plain_name
    : quoted_identifier
    | IDENTIFICATOR
    ;

node_table_hint
    : table_hint -> ^(TABLE_HINT table_hint)
    ;

// a = b + 1
assign_name
    : (quoted_identifier | IDENTIFICATOR) EQ expression
    ;

into_name
    : 'INTO'! node_new_name
    ;

// --------------------------------------------------------------- conditions

// AND and OR stand at one level: a OR b AND c is ^(AND ^(OR a b) c). Behind an operator a chain in parentheses is one
// operand: a AND (b OR c) is ^(AND a ^(OR b c))
logical_expression
    : logical_operand
      ((logical_operator further_operand)=> logical_operator^ further_operand)*
    ;

// The parenthesis is left to a BETWEEN that stands in it whole: (a BETWEEN 1 AND 2)
logical_operand
    : ( (between_expression)=> between_expression
      | LEFT_PAREN!? logical_factor
      )
      RIGHT_PAREN!?
    ;

further_operand
    : (chain_in_parentheses)=> chain_in_parentheses RIGHT_PAREN!?
    | logical_operand
    ;

// (b = 1 OR c = 2): read up to the partner of the parenthesis; its last operand may take closing parentheses beyond it,
// but nothing else, so that a AND (b || c) LIKE d is no such chain.
chain_in_parentheses
@declarations { ANTLR3_MARKER partner; }
@init { partner = qzPartnerOf(LT(1)); }
    : LEFT_PAREN! logical_operand
      ((logical_operator)=> {qzGoesOnBefore(ctx->pParser, partner)}?=> logical_operator^ further_operand)+
      {qzIsReadToPartner(ctx->pParser->tstream, partner)}?
    ;

logical_operator
    : AND_KEYWORD
    | OR_KEYWORD
    | AND_KEYWORD2
    | OR_KEYWORD2
    ;

// (a BETWEEN 1 AND 2), a = 1, a
logical_factor
    : (between_expression)=> between_expression
    | (NOT? node_search_condition)=> NOT? node_search_condition
    | expression RIGHT_PAREN!?
    ;

// Without its parentheses BETWEEN trails: (a BETWEEN 1 AND 2)
between_expression
    : LEFT_PAREN expression NOT? BETWEEN_KEYWORD^ between_logical_expression RIGHT_PAREN
    ;

// The AND of BETWEEN is a logical operator like any other: 1 AND 2
between_logical_expression
    : expression ((logical_operator expression)=> logical_operator^ expression)?
    ;

node_search_condition
    : search_condition -> ^(SEARCH_CONDITION search_condition)
    ;

// a = 1, (a = 1)
search_condition
    : LEFT_PAREN!? func_comparison RIGHT_PAREN!?
    ;

// a IN (1, 2)
func_comparison
    : func_parameter comparison^ (func_parameter | node_sql_query)
    ;

comparison
    : IN_KEYWORD
    | NOT
    | NOT_IN_KEYWORD
    | IS_KEYWORD
    | LIKE_KEYWORD
    | EQ
    | L_T
    | GT
    | NOT_EQ
    | LE
    | GE
    | LOJ
    | GOJ
    ;

// a + 1; (1, 2); @x
func_parameter
    : LEFT_PAREN!? (expression | '@' IDENTIFICATOR) ((COMMA expression)=> COMMA! expression)* RIGHT_PAREN!?
    ;

// WHEN a = 1 THEN 2: an expression where it is whole
result_expression
    : (expression (WHEN | THEN | ELSE | END))=> expression
    | logical_expression
    ;

// -------------------------------------------------------------- expressions

// a + b - c
expression
    : term (((PLUS | MINUS) term)=> (PLUS^ | MINUS^) term)*
    ;

// a * b & c: one level
term
    : factor (((ASTERISK | DIVIDE | MOD1 | AMPERSAND) factor)=> (ASTERISK^ | DIVIDE^ | MOD1^ | AMPERSAND^) factor)*
    ;

// a | | b
factor
    : factor2 ((VERTBAR VERTBAR factor2)=> VERTBAR VERTBAR factor2)*
    ;

// A parenthesis is never taken for that of a number, and a name in backticks with a list is a function: `f`(1)
factor2
    : (literal_start)=> node_sql_literal
    | all_node_function
    | (LEFT_PAREN expression RIGHT_PAREN)=> LEFT_PAREN! expression RIGHT_PAREN!
    | variable
    | expression_list
    | node_table_specification
    | all_sql_query
    | (literal_start)=> node_number
    | node_column_specification
    ;

// Guessed only: what a number or a string begins with, a sign only where the number follows: -5, -(5)
literal_start
    : DIGIT
    | DOT
    | NULL_KEYWORD
    | NOT_NULL_KEYWORD
    | '\''
    | znak LEFT_PAREN? DIGIT
    | znak DOT DIGIT
    | znak (NULL_KEYWORD | NOT_NULL_KEYWORD)
    ;

// a, a(+)
variable
    : (node_column_specification LEFT_PAREN PLUS RIGHT_PAREN)=> node_column_specification LEFT_PAREN PLUS RIGHT_PAREN
    | node_column_specification
    ;

// (1, 2, 3)
expression_list
    : LEFT_PAREN expression (COMMA! expression)* RIGHT_PAREN
    ;

node_sql_literal
    : sql_literal -> ^(SQL_LITERAL sql_literal)
    ;

sql_literal
    : node_number
    | node_date_literal
    | node_quoted_string
    | NULL_KEYWORD
    ;

node_number
    : number -> ^(NUMBER_LITERAL number)
    ;

// Tokens, not one word: -1.5 is MINUS DIGIT DOT DIGIT
number
    : (PLUS | MINUS)?
      ( exp_number
      | DOT DIGIT
      | (LEFT_PAREN? DIGIT)=> LEFT_PAREN!? DIGIT ((DOT DIGIT)=> DOT DIGIT)?
      | NOT_NULL_KEYWORD
      | NULL_KEYWORD
      )
    ;

// 1.5 E 3, 1.5e+3, but not LIMIT 5 OFFSET 10
exp_number
    : DIGIT ((DOT DIGIT)=> DOT DIGIT)? {qzIsExponent(LT(1))}? IDENTIFICATOR znak* DIGIT
    ;

znak
    : PLUS
    | MINUS
    ;

node_quoted_string
    : quoted_string -> ^(SQL_STRING quoted_string)
    ;

// 'a b' is a run of tokens; a quote in it ends it: 'it''s' is two
quoted_string
    : '\''! (~'\'')* '\''!
    ;

node_date_literal
    : d_date_literal -> ^(DATE d_date_literal)
    ;

// '1/2/2000', 'Jan 5, 2000'
d_date_literal
    : '\'' (number DIVIDE number DIVIDE number | IDENTIFICATOR WS* number COMMA? WS* number) '\''
    ;

node_maximum
    : maximum -> ^(NUMBER_LITERAL maximum)
    ;

maximum
    : ALL_KEYWORD
    | MAX
    ;

// ---------------------------------------------------------------- functions

all_node_function
    : node_function
    ;

node_function
    : function_ -> ^(FUNCTION_MY function_)
    | user_func_name -> ^(USER_FUNCTION user_func_name)
    | convert_function -> ^(FUNCTION_MY convert_function)
    ;

// LEFT(a, 1), NOW, {fn NOW()}
function_
    : function ((node_func_param)=> node_func_param)? RIGHT_BRACE!?
    ;

// A parenthesis before the word is taken, and one behind it where there is one: (NOW)
function
    : LEFT_PAREN!?
      ( case_function
      | group_function_
      | number_function
      | string_function
      | LEFT_BRACE!? escape_syn? datetime_function
      | configuration_function
      | exist_func
      )
      RIGHT_PAREN!?
    ;

escape_syn
    : 'fn'
    ;

// COUNT(DISTINCT a)
group_function_
    : other_function node_group_func_param
    ;

// CAST(a AS CHAR(10))
convert_function
    : convert_func node_convert_func_param
    ;

// EXISTS (SELECT a FROM t)
exist_func
    : EXISTS node_exist_func_param
    | NOT_EXISTS node_exist_func_param
    ;

node_exist_func_param
    : all_sql_query -> ^(FUNC_PARAM all_sql_query)
    ;

// `f`(1)
user_func_name
    : quoted_identifier node_func_param
    ;

node_func_param
    : function_param -> ^(FUNC_PARAM function_param)
    ;

// (a, b + 1), (yy, a, b), (), (d, INTERVAL 1 DAY)
function_param
    : LEFT_PAREN!
      ((first_parameter)=> first_parameter ((COMMA? expression)=> COMMA!? expression)*)?
      RIGHT_PAREN!?
    ;

first_parameter
    : expression
    | node_date_part
    ;

node_date_part
    : date_part -> ^(DATE_PART date_part)
    ;

date_part
    : 'mi' | 'yy' | 'wk' | 'mm'
    ;

node_group_func_param
    : (group_func_param)=> group_func_param -> ^(FUNC_PARAM group_func_param)
    | convert_func_param -> ^(FUNC_PARAM convert_func_param)
    ;

// (*), (DISTINCT a, b)
group_func_param
    : LEFT_PAREN! (ALL_KEYWORD | DISTINCT_KEYWORD)?
      (ASTERISK | expression ((COMMA expression)=> COMMA! expression)*)
      RIGHT_PAREN!?
    ;

node_convert_func_param
    : convert_func_param -> ^(FUNC_PARAM convert_func_param)
    ;

// (INT, a, 1), (a AS INT)
convert_func_param
    : (LEFT_PAREN node_datatype COMMA expression)=>
      LEFT_PAREN! node_datatype COMMA! expression ((COMMA node_style)=> COMMA! node_style)? RIGHT_PAREN!?
    | LEFT_PAREN! expression node_as^ node_datatype RIGHT_PAREN!?
    ;

node_as
    : as_rock -> ^(AS as_rock)
    ;

as_rock
    : LITERAL_AS!
    ;

node_style
    : number -> ^(STYLE number)
    ;

node_datatype
    : data_type_all -> ^(DATATYPE data_type_all)
    ;

// CHAR(10), DECIMAL(10, 2), VARCHAR(MAX)
data_type_all
    : data_type ((data_type_size)=> data_type_size)?
    | data_type
    ;

data_type_size
    : LEFT_PAREN!? (node_maximum | node_number) (COMMA! node_number)* RIGHT_PAREN!
    ;

data_type
    : DATETIME | VARCHAR | CHAR | INT | NUMERIC | FLOAT | NCHAR | MONEY | DECIMAL | SMALLMONEY | BIGINT | BIT | REAL
    | SMALLDATETIME | NVARCHAR | TINYINT | NTEXT | TIMESHTAMP | INTEGER
    ;

// CASE a WHEN 1 THEN 2 ELSE 3 END
case_function
    : CASE node_case_param
    ;

node_case_param
    : case_param -> ^(FUNC_PARAM case_param)
    ;

case_param
    : ( (LEFT_PAREN expression)=> LEFT_PAREN! expression RIGHT_PAREN!?
      | expression
      )?
      node_atrib_case_func* END RIGHT_PAREN!?
    ;

node_atrib_case_func
    : case_atrib_func -> ^(FUNCTION_MY case_atrib_func)
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

other_function
    : AESDECRYPT | IFNULL | AVG | COUNT | MAX | MIN | SUM
    ;

number_function
    : ABS | ACOS | ASIN | ATAN2 | ATAN | CEILING | CEIL | COS | COT | CRC32 | DEGREES | EXP | FLOOR | LN | LOG10
    | LOG2 | LOG | MOD | PI | POW | POWER | RADIANS | RAND | ROUND | SIGN | SIN | SQRT | TAN | TRUNCATE
    ;

string_function
    : LEFT_KEYWORD | RIGHT_KEYWORD | ASCII | BIN | BITLENGTH | CHARLENGTH | CHAR | CHARACTERLENGTH | CONCATWS | CONCAT
    | CONV | ELT | EXPORTSET | FIELD | FINDINSET | FORMAT | HEX | INSERT | INSTR | ISNULL | IS_KEYWORD | LCASE
    | LENGTH | LIKE_KEYWORD | LOADFILE | LOCATE | LOWER | LPAD | LTRIM | MAKESET | MID | NOTLIKE | NOTREGEXP | OCT
    | OCTETLENGTH | ORD | POSITION_FUNCTION | QUOTE | REGEXP | REPEAT | REPLACE | REVERSE | RLIKE | RPAD | RTRIM
    | SOUNDEX | SPACE | STRCMP | SUBSTRINGINDEX | SUBSTRING | SUBSTR | TRIM | UCASE | UNHEX | UPPER
    ;

datetime_function
    : DATE | ADDDATE | ADDTIME | CONVERTTZ | CURDATE | CURRENTDATE | CURRENTTIME | CURRENTTIMESTAMP | CURTIME
    | DATEADD | DATEFORMAT | DATESUB | DATEDIFF | DAY | DAYNAME | DAYOFMONTH | DAYOFWEEK | DAYOFYEAR | EXTRACT
    | FROMDAYS | FROMUNIXTIME | GETFORMAT | HOUR | LASTDAY | LOCALTIME | LOCALTIMESTAMP | MAKEDATE | MAKETME
    | MICROSECOND | MINUTE | MONTH | MONTHNAME | NOW | PERIODADD | PEDIODDIFF | QUARTER | SECTOTIME | SECOND
    | STRTODATE | SUBDATE | SUBTIME | SYSDATE | TIMEFORMAT | TIMETOSEC | TIME | TIMEDIFF | TIMESTAMP | TIMESTAMPADD
    | TIMESTAMPDIFF | TODAYS | UNIXTIMESTAMP | UTCDATE | UTCTIME | UTCTIMESTAMP | WEEK | WEEKDAY | WEEKOFDATE | YEAR
    | YEARWEEK
    ;

configuration_function
    : '@@CONNECTION' | '@@DATEFIRST' | '@@DBTS' | '@@LANGID' | '@@LANGUAGE' | '@@LOCK_TIMEOUT' | '@@MAX_CONNECTIONS'
    | '@@MAX_PRECISION' | '@@NESTLEVEL' | '@@OPTIONS' | '@@REMSERVER' | '@@SERVERNAME' | '@@SERVICENAME' | '@@SPID'
    | '@@TEXTSIZE' | '@@VERSION'
    ;

convert_func
    : CAST | 'CONVERT'
    ;

// ------------------------------------------------------------------- tokens

// The order of the rules is that of the alternatives of the next token: the earlier one wins a tie.

// Words and signs in one case: WITH, not with.

WORD_LOOP : 'LOOP';
WORD_HASH : 'HASH';
WORD_MERGE : 'MERGE';
WORD_REMOTE : 'REMOTE';
WORD_AT_CONNECTION : '@@CONNECTION';
WORD_AT_DATEFIRST : '@@DATEFIRST';
WORD_AT_DBTS : '@@DBTS';
WORD_AT_LANGID : '@@LANGID';
WORD_AT_LANGUAGE : '@@LANGUAGE';
WORD_AT_LOCK_TIMEOUT : '@@LOCK_TIMEOUT';
WORD_AT_MAX_CONNECTIONS : '@@MAX_CONNECTIONS';
WORD_AT_MAX_PRECISION : '@@MAX_PRECISION';
WORD_AT_NESTLEVEL : '@@NESTLEVEL';
WORD_AT_OPTIONS : '@@OPTIONS';
WORD_AT_REMSERVER : '@@REMSERVER';
WORD_AT_SERVERNAME : '@@SERVERNAME';
WORD_AT_SERVICENAME : '@@SERVICENAME';
WORD_AT_SPID : '@@SPID';
WORD_AT_TEXTSIZE : '@@TEXTSIZE';
WORD_AT_VERSION : '@@VERSION';
WORD_CONVERT : 'CONVERT';
WORD_mi : 'mi';
WORD_yy : 'yy';
WORD_wk : 'wk';
WORD_mm : 'mm';
WORD_fn : 'fn';
WORD_BROWSE : 'BROWSE';
WORD_XML : 'XML';
WORD_RAW : 'RAW';
WORD_AUTO : 'AUTO';
WORD_EXPLICIT : 'EXPLICIT';
WORD_XMLDATA : 'XMLDATA';
WORD_ELEMENTS : 'ELEMENTS';
WORD_BYNATY_base64 : 'BYNATY base64';
WORD_FAST : 'FAST';
WORD_FORCE : 'FORCE';
WORD_MAXDOP : 'MAXDOP';
WORD_ROBUST : 'ROBUST';
WORD_KEEP : 'KEEP';
WORD_KEEPFIXED : 'KEEPFIXED';
WORD_PLAN : 'PLAN';
WORD_EXPAND_VIEWS : 'EXPAND VIEWS';
WORD_WITH : 'WITH';
SIGN_QUOTE : '\'';
WORD_IDENTIFYCOL : 'IDENTIFYCOL';
WORD_ROWGUIDCOL : 'ROWGUIDCOL';
WORD_INTO : 'INTO';
WORD_INDEX : 'INDEX';
WORD_FASTFIRSTROW : 'FASTFIRSTROW';
WORD_HOLDLOCK : 'HOLDLOCK';
WORD_NOLOCK : 'NOLOCK';
WORD_PAGLOCK : 'PAGLOCK';
WORD_READCOMMITTED : 'READCOMMITTED';
WORD_READPAST : 'READPAST';
WORD_READUNCOMMITTED : 'READUNCOMMITTED';
WORD_REPEATABLEREAD : 'REPEATABLEREAD';
WORD_ROWLOCK : 'ROWLOCK';
WORD_SERIALIZABLE : 'SERIALIZABLE';
WORD_TABLOCK : 'TABLOCK';
WORD_TABLOCKX : 'TABLOCKX';
WORD_UPDLOCK : 'UPDLOCK';
WORD_XLOCK : 'XLOCK';
SIGN_AT : '@';

// Keywords, any case: Select, SELECT

SELECT_KEYWORD : S E L E C T;
TOP_KEYWORD : T O P;
ALL_KEYWORD : A L L;
DISTINCT_KEYWORD : D I S T I N C T;
PERCENT_KEYWORD : P E R C E N T;
WITHTIES_KEYWORD : W I T H T I E S;
FROM_KEYWORD : F R O M;
DISTINCTROW : D I S T I N C T R O W;
LIMIT_KEYWORD : L I M I T;
INNER_KEYWORD : I N N E R;
JOIN_KEYWORD : J O I N;
LEFT_KEYWORD : L E F T;
RIGHT_KEYWORD : R I G H T;
FULL_KEYWORD : F U L L;
OUTER_KEYWORD : O U T E R;
CROSS_KEYWORD : C R O S S;
STRAIGHT_KEYWORD : S T R A I G H T;
NATURAL_KEYWORD : N A T U R A L;
WITH_KEYWORD : W I T H;
EXISTS : E X I S T S;
NOT_EXISTS : N O T ' ' E X I S T S;
ON_KEYWORD : O N;
NULL_KEYWORD : N U L L;
WHERE_KEYWORD : W H E R E;
HAVING_KEYWORD : H A V I N G;
GROUP_KEYWORD : G R O U P;
ORDER_KEYWORD : O R D E R;
BY_KEYWORD : B Y;
UNION_KEYWORD : U N I O N;
CUBE_KEYWORD : C U B E;
ROLLUP_KEYWORD : R O L L U P;
ASC_KEYWORD : A S C;
DESC_KEYWORD : D E S C;
COMPUTE_KEYWORD : C O M P U T E;
FOR_KEYWORD : F O R;
OPTION_KEYWORD : O P T I O N;
AND_KEYWORD : A N D;
OR_KEYWORD : O R;
BETWEEN_KEYWORD : B E T W E E N;
CONVERT_KEYWORD : C O N V E R T;
IN_KEYWORD : I N;
LITERAL_AS : A S;
NOT : N O T;
NOT_IN_KEYWORD : N O T ' ' I N;
NOT_NULL_KEYWORD : N O T ' ' N U L L;

// [ and " stand in no rule of the parser.
LEFT_COL_PAREN : '[';
RIGHT_COL_PAREN : ']';
MY_QUOTE : '"';
MY_ONE_QUOTE : '`';
LEFT_BRACE : '{';
RIGHT_BRACE : '}';
LEFT_PAREN : '(';
RIGHT_PAREN : ')';
AND_KEYWORD2 : '&&';
OR_KEYWORD2 : '||';

// Words of functions and types.

ABS : A B S;
ACOS : A C O S;
ASIN : A S I N;
ATAN2 : A T A N '2';
ATAN : A T A N;
CEILING : C E I L I N G;
CEIL : C E I L;
COS : C O S;
COT : C O T;
CRC32 : C R C '32';
DEGREES : D E G R E E S;
EXP : E X P;
FLOOR : F L O O R;
LN : L N;
LOG10 : L O G '10';
LOG2 : L O G '2';
LOG : L O G;
MOD : M O D;
PI : P I;
POW : P O W;
POWER : P O W E R;
RADIANS : R A D I A N S;
RAND : R A N D;
ROUND : R O U N D;
SIGN : S I G N;
SIN : S I N;
SQRT : S Q R T;
TAN : T A N;
TRUNCATE : T R U N C A T E;
ADDDATE : A D D D A T E;
ADDTIME : A D D T I M E;
CONVERTTZ : C O N V E R T '_' T Z;
CURDATE : C U R D A T E;
CURRENTDATE : C U R R E N T '_' D A T E;
CURRENTTIME : C U R R E N T '_' T I M E;
CURRENTTIMESTAMP : C U R R E N T '_' T I M E S T A M P;
CURTIME : C U R T I M E;
DATEADD : D A T E '_' A D D;
DATEFORMAT : D A T E '_' F O R M A T;
DATESUB : D A T E '_' S U B;
DATE : D A T E;
DATEDIFF : D A T E D I F F;
DAY : D A Y;
DAYNAME : D A Y N A M E;
DAYOFMONTH : D A Y O F M O N T H;
DAYOFWEEK : D A Y O F W E E K;
DAYOFYEAR : D A Y O F Y E A R;
EXTRACT : E X T R A C T;
FROMDAYS : F R O M '_' D A Y S;
FROMUNIXTIME : F R O M '_' U N I X T I M E;
GETFORMAT : G E T '_' F O R M A T;
HOUR : H O U R;
LASTDAY : L A S T '_' D A Y;
LOCALTIME : L O C A L T I M E;
LOCALTIMESTAMP : L O C A L T I M E S T A M P;
MAKEDATE : M A K E D A T E;
MAKETME : M A K E T M E;
MICROSECOND : M I C R O S E C O N D;
MINUTE : M I N U T E;
MONTH : M O N T H;
MONTHNAME : M O N T H N A M E;
NOW : N O W;
PERIODADD : P E R I O D '_' A D D;
PEDIODDIFF : P E D I O D '_' D I F F;
QUARTER : Q U A R T E R;
SECTOTIME : S E C '_' T O '_' T I M E;
SECOND : S E C O N D;
STRTODATE : S T R '_' T O '_' D A T E;
SUBDATE : S U B D A T E;
SUBTIME : S U B T I M E;
SYSDATE : S Y S D A T E;
TIMEFORMAT : T I M E '_' F O R M A T;
TIMETOSEC : T I M E '_' T O '_' S E C;
TIME : T I M E;
TIMEDIFF : T I M E D I F F;
TIMESTAMP : T I M E S T A M P;
TIMESTAMPADD : T I M E S T A M P A D D;
TIMESTAMPDIFF : T I M E S T A M P D I F F;
TODAYS : T O '_' D A Y S;
UNIXTIMESTAMP : U N I X '_' T I M E S T A M P;
UTCDATE : U T C '_' D A T E;
UTCTIME : U T C '_' T I M E;
UTCTIMESTAMP : U T C '_' T I M E S T A M P;
WEEK : W E E K;
WEEKDAY : W E E K D A Y;
WEEKOFDATE : W E E K O F D A T E;
YEAR : Y E A R;
YEARWEEK : Y E A R W E E K;
ASCII : A S C I I;
BIN : B I N;
BITLENGTH : B I T '_' L E N G T H;
CHARLENGTH : C H A R '_' L E N G T H;
CHAR : C H A R;
CHARACTERLENGTH : C H A R A C T E R '_' L E N G T H;
CONCATWS : C O N C A T '_' W S;
CONCAT : C O N C A T;
CONV : C O N V;
ELT : E L T;
EXPORTSET : E X P O R T '_' S E T;
FIELD : F I E L D;
FINDINSET : F I N D '_' I N '_' S E T;
FORMAT : F O R M A T;
HEX : H E X;
INSERT : I N S E R T;
INSTR : I N S T R;
ISNULL : I S N U L L;
IS_KEYWORD : I S;
LCASE : L C A S E;
LENGTH : L E N G T H;
LIKE_KEYWORD : L I K E;
LOADFILE : L O A D '_' F I L E;
LOCATE : L O C A T E;
LOWER : L O W E R;
LPAD : L P A D;
LTRIM : L T R I M;
MAKESET : M A K E '_' S E T;
MID : M I D;
NOTLIKE : N O T '_' L I K E;
NOTREGEXP : N O T '_' R E G E X P;
OCT : O C T;
OCTETLENGTH : O C T E T '_' L E N G T H;
ORD : O R D;
POSITION_FUNCTION : P O S I T I O N;
QUOTE : Q U O T E;
REGEXP : R E G E X P;
REPEAT : R E P E A T;
REPLACE : R E P L A C E;
REVERSE : R E V E R S E;
RLIKE : R L I K E;
RPAD : R P A D;
RTRIM : R T R I M;
SOUNDEX : S O U N D E X;
SPACE : S P A C E;
STRCMP : S T R C M P;
SUBSTRINGINDEX : S U B S T R I N G '_' I N D E X;
SUBSTRING : S U B S T R I N G;
SUBSTR : S U B S T R;
TRIM : T R I M;
UCASE : U C A S E;
UNHEX : U N H E X;
UPPER : U P P E R;
CASE : C A S E;
WHEN : W H E N;
THEN : T H E N;
ELSE : E L S E;
END : E N D;
DATETIME : D A T E T I M E;
VARCHAR : V A R C H A R;
INT : I N T;
NUMERIC : N U M E R I C;
FLOAT : F L O A T;
NCHAR : N C H A R;
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
TIMESHTAMP : T I M E S H T A M P;
INTEGER : I N T E G E R;
AESDECRYPT : A E S '_' D E C R Y P T;
IFNULL : I F N U L L;
CAST : C A S T;
AVG : A V G;
COUNT : C O U N T;
MAX : M A X;
MIN : M I N;
SUM : S U M;

// Tab_1; letters of the ASCII range only
IDENTIFICATOR : ('A'..'Z' | '_' | 'a'..'z') ('0'..'9' | 'A'..'Z' | '_' | 'a'..'z')*;

// A run of digits; signs, points and exponents are put together by the parser: 10
DIGIT : '0'..'9'+;

PLUS : '+';
MINUS : '-';
AMPERSAND : '&';
DIVIDE : '/';
DOT : '.';
ASTERISK : '*';
COMMA : ',';
VERTBAR : '|';
MOD1 : '%';
EQ : '=';
L_T : '<';
GT : '>';
NOT_EQ : '!=' | '<>';
LE : '<=';
GE : '>=';
LOJ : '*=';
GOJ : '=*';

// No token is made of it: white space is dropped like any character that begins none.
fragment WS : (' ' | '\t' | '\r' '\n' | '\n' | '\r') { SKIP(); };

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
