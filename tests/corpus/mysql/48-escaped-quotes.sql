SELECT id FROM books WHERE title = 'Gulliver''s' AND author = 'O\'Hara'
