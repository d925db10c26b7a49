SELECT id FROM tickets
WHERE (state = 'open' OR state = 'new') AND project_id = 7
