SELECT `Größe`, Straße, `имя` FROM Artikel WHERE Größe > 10
