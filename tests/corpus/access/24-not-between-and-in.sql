select ArticleCode, Weight from tblArticle where Weight not between 0.5 and 2.25 and ColourID in (3, 5, 8) and not Discontinued = true;
